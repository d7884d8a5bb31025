// The same for the application that runs: every file call of its life fails once, one life for each, in which it is
// asked over the bus for one thing after the other. It keeps running, and what it answers is so.

#include "Faults/FaultFixture.h"
#include "Faults/RunningApplication.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What the application is asked for in its life, in an order in which nothing that a request takes for granted is
/// another's business. What is meant to be gone stays so.
std::vector<Scenario> requests()
{
    std::vector<Scenario> all;
    FaultHome::Meant meant;
    for (const char *name : {"settings", "settingsUnset", "keySet", "keyDelete", "noFavorite", "delete", "favorite",
                             "set", "autoOn", "upscaleByService", "generateGemini"}) {
        std::vector<Scenario> known = scenarios(Of::Everything);
        const auto found = std::find_if(known.begin(), known.end(),
                                        [name](const Scenario &each) { return qstrcmp(each.name, name) == 0; });
        meant.pictures += found->meant.pictures;
        meant.favorites += found->meant.favorites;
        meant.keys += found->meant.keys;
        meant.settings += found->meant.settings;
        found->meant = meant;
        all.push_back(*found);
    }
    return all;
}

} // namespace

class ApplicationFaultTest : public FaultFixture
{
  protected:
    /// One life of the application, with the fault that is planned.
    [[nodiscard]] QStringList wrongIn(const Place &place, const FaultPlan &plan) const
    {
        const PrivateBus bus;
        if (!bus.isThere()) {
            return {u"there is no bus"_s};
        }
        RunningApplication application(bus, environmentIn(place, plan));
        const QProcessEnvironment asking = bus.environment(environmentIn(place.home));
        QStringList wrong;
        const auto note = [&wrong](const char *when, const QStringList &lines) {
            for (const QString &line : lines) {
                wrong.append(QLatin1String(when) + u": "_s + line);
            }
        };
        for (const Scenario &request : requests()) {
            const CommandRun answer = runQuorvane(request.arguments + QStringList{u"--json"_s}, asking, request.input);
            note(request.name, wrongAfter(request, place.home, answer));
            if (!application.isRunning()) {
                note(request.name, {u"the application has ended: "_s + QString::fromUtf8(application.errors())});
                return wrong;
            }
        }
        const CommandRun quit = runQuorvane({u"quit"_s, u"--json"_s}, asking);
        if (quit.status != 0 || !application.hasEndedWell()) {
            note("quit", {u"it did not end in order: "_s + QString::fromUtf8(quit.errors + application.errors())});
        }
        note("the next start", wrongAtNextStart(place.home));
        return wrong;
    }
};

TEST_F(ApplicationFaultTest, itKeepsRunningAndWhatItAnswersIsSo)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    if (!PrivateBus::isInstalled()) {
        GTEST_SKIP() << "dbus-daemon or gdbus is not installed.";
    }
    const Place untouched;
    ASSERT_EQ(wrongIn(untouched, {}).join('\n'_L1).toStdString(), "");
    const std::vector<Call> seen = untouched.calls();
    ASSERT_GT(seen.size(), 100U) << "hardly any call was seen, so nothing was tried";

    // A life takes a second, so the short form tries some calls of every part of it.
    constexpr std::size_t kShortForm = 24;
    std::vector<Attempt> attempts = attemptsAt(seen, Kinds::OneInTurn);
    if (!isLongForm()) {
        const std::size_t step = attempts.size() / kShortForm;
        for (std::size_t at = 0; at < kShortForm; ++at) {
            attempts[at] = attempts[at * step + at % step];
        }
        attempts.resize(kShortForm);
    }
    const Faults faults = each(attempts.size(), [&](std::size_t at) {
        const Place place;
        const QStringList wrong = wrongIn(place, attempts[at].plan());
        const auto [hasHappened, where] = whereOf(attempts[at], place);
        Faults one{.tried = 1, .happened = hasHappened ? 1 : 0, .wrong = {}};
        for (const QString &line : wrong) {
            one.wrong.append(where + line);
        }
        return one;
    });
    printFaults("application", "calls", faults);
    EXPECT_GT(faults.happened, faults.tried / 2) << "most faults never happened";
    EXPECT_EQ(faults.wrong.join('\n'_L1).toStdString(), "");
}

} // namespace quorvane
