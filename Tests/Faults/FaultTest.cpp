// Makes every file call of a command fail once, one run for each, and looks at what is left, what was said, and whether
// both agree. FailOneCall.cpp is what makes them fail.

#include "Faults/FaultFixture.h"

#include <cerrno>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// How one call is made to fail.
struct Fault
{
    int error = 0;
    bool isShort = false;
    const char *title = "";
};

/// What can happen to a call. One of them, in turn, is tried in every run of the tests; all of them in the long form.
std::vector<Fault> faultsOf(const QByteArray &call)
{
    const Fault noSpace{ENOSPC, false, "ENOSPC"};
    const Fault broken{EIO, false, "EIO"};
    const Fault tooMany{EMFILE, false, "EMFILE"};
    const Fault interrupted{EINTR, false, "EINTR"};
    const Fault refused{EACCES, false, "EACCES"};
    if (call == "open") {
        return {tooMany, broken, interrupted, refused};
    }
    if (call == "read") {
        return {broken, interrupted};
    }
    if (call == "write") {
        return {noSpace, {0, true, "half"}, interrupted, broken};
    }
    if (call == "fsync") {
        return {broken, noSpace};
    }
    if (call == "close") {
        return {broken};
    }
    return {refused, noSpace, broken};
}

/// A call and how it fails.
struct Attempt
{
    Call call;
    Fault fault;
};

std::vector<Attempt> attemptsAt(const std::vector<Call> &calls, bool all)
{
    std::vector<Attempt> attempts;
    for (const Call &call : calls) {
        const std::vector<Fault> faults = faultsOf(call.name);
        for (std::size_t at = 0; at < faults.size(); ++at) {
            if (all || at == static_cast<std::size_t>(call.index) % faults.size()) {
                attempts.push_back({call, faults[at]});
            }
        }
    }
    return attempts;
}

} // namespace

class FaultTest : public FaultFixture
{
};

TEST_P(FaultTest, nothingIsLostAndWhatIsToldIsSo)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    const Scenario &scenario = GetParam();
    const Place untouched(scenario);
    const CommandRun good = run(scenario, untouched, {});
    ASSERT_EQ(good.status, 0) << good.errors.constData();
    ASSERT_EQ(wrongAfter(scenario, untouched.home, good).join('\n'_L1).toStdString(), "") << good.output.constData();
    ASSERT_GT(untouched.calls().size(), 5U) << "hardly any call was seen, so nothing was tried";

    const std::vector<Attempt> attempts = attemptsAt(untouched.calls(), qgetenv("QUORVANE_SOAK") == "full");
    const Faults faults = each(attempts.size(), [&](std::size_t at) {
        const auto &[call, fault] = attempts[at];
        const Place place(scenario);
        const CommandRun hurt =
            run(scenario, place, {.nth = call.index, .error = fault.error, .isShort = fault.isShort});
        // The order of the calls may differ a little from run to run.
        const std::vector<Call> now = place.calls();
        const bool hasHappened = static_cast<std::size_t>(call.index) <= now.size();
        QByteArray hit = hasHappened ? now[static_cast<std::size_t>(call.index) - 1].path : call.path;
        hit.replace(place.home.path().toUtf8(), "~");
        const QString where = u"%1 of %2 (%3, call %4): "_s
                                  .arg(QLatin1String(fault.title), QString::fromUtf8(call.name), QString::fromUtf8(hit))
                                  .arg(call.index);
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
