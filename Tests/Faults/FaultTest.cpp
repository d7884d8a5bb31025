// Makes every file call of a command fail once, one run for each, and looks at what is left, what was said, and whether
// both agree. FailOneCall.cpp is what makes them fail.

#include "Faults/FaultFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class FaultTest : public FaultFixture, public testing::WithParamInterface<Scenario>
{
};

TEST_P(FaultTest, nothingIsLostAndWhatIsToldIsSo)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    const Scenario &scenario = GetParam();
    const Place untouched(scenario.settings);
    const CommandRun good = run(scenario, untouched, {});
    ASSERT_EQ(good.status, 0) << good.errors.constData();
    ASSERT_EQ(wrongAfter(scenario, untouched.home, good).join('\n'_L1).toStdString(), "") << good.output.constData();
    ASSERT_GT(untouched.calls().size(), 5U) << "hardly any call was seen, so nothing was tried";

    const std::vector<Attempt> attempts = attemptsAt(untouched.calls(), isLongForm() ? Kinds::All : Kinds::OneInTurn);
    const Faults faults = each(attempts.size(), [&](std::size_t at) {
        const Place place(scenario.settings);
        const CommandRun hurt = run(scenario, place, attempts[at].plan());
        const auto [hasHappened, where] = whereOf(attempts[at], place);
        Faults one{.tried = 1, .happened = hasHappened ? 1 : 0, .wrong = {}};
        for (const QString &line : wrongAfter(scenario, place.home, hurt) + wrongAtNextStart(place.home)) {
            one.wrong.append(where + line);
        }
        return one;
    });
    printFaults(scenario.name, "calls", faults);
    EXPECT_GT(faults.happened, faults.tried / 2) << "most faults never happened";
    EXPECT_EQ(faults.wrong.join('\n'_L1).toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Every, FaultTest, testing::ValuesIn(scenarios(Of::Everything)),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace quorvane
