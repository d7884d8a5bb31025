// The first start of somebody whose keys are still in the system's keyring: while they move into the key file, every
// file call fails once. A key is in one of the two, whatever happens, and the next start brings the rest.

#include "Faults/FaultFixture.h"
#include "Support/Desktop/LoginSession.h"
#include "Support/Files.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class KeyMoveFaultTest : public FaultFixture
{
  protected:
    /// Of the file's own key there is another in the keyring, which must not win.
    static constexpr const char *kFileOnly = R"({"gemini":"KEY OF GEMINI"})";

    /// The keys as they were before the first start: one in the file, and three in the keyring.
    [[nodiscard]] bool restore(const Place &place)
    {
        bool isRestored = putFile(place.home.keyFile(), kFileOnly) &&
                          QFile::setPermissions(place.home.keyFile(), QFile::ReadOwner | QFile::WriteOwner);
        for (const QString &id : {u"gemini"_s, u"grok"_s, u"openai"_s}) {
            isRestored = isRestored && session.storeSecret(id + u"-api-key"_s, oldKey(id).toUtf8());
        }
        return isRestored;
    }

    [[nodiscard]] static QString oldKey(const QString &id) { return u"OLD KEY OF "_s + id; }

    [[nodiscard]] CommandRun start(const Place &place, const FaultPlan &plan) const
    {
        QProcessEnvironment ours = environmentIn(place, plan);
        for (const char *name : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}) {
            ours.insert(QLatin1String(name), session.environment().value(QLatin1String(name)));
        }
        return runQuorvane({u"status"_s, u"--json"_s}, ours);
    }

    [[nodiscard]] bool isInKeyring(const QString &id)
    {
        return session.secret(id + u"-api-key"_s) == oldKey(id).toUtf8();
    }

    /// The keys that are neither in the file, nor aside, nor in the keyring.
    [[nodiscard]] QStringList lost(const Place &place)
    {
        const FaultHome::Meant notInTheFile{.keys = {u"grok"_s, u"openai"_s}};
        QStringList lines = place.home.lost(notInTheFile);
        for (const QString &id : notInTheFile.keys) {
            if (!place.home.keepsKey(id, oldKey(id)) && !isInKeyring(id)) {
                lines.append(u"old key of "_s + id);
            }
        }
        return lines;
    }

    [[nodiscard]] bool isMoved(const Place &place)
    {
        return place.home.keepsKey(u"grok"_s, oldKey(u"grok"_s)) &&
               place.home.keepsKey(u"openai"_s, oldKey(u"openai"_s)) && !isInKeyring(u"gemini"_s) &&
               !isInKeyring(u"grok"_s) && !isInKeyring(u"openai"_s);
    }

    /// A launch waits only briefly for a keyring that is slow to answer, and the next one finds what it left.
    [[nodiscard]] bool isMovedSoon(const Place &place)
    {
        constexpr int kLaunches = 5;
        for (int launch = 0; launch < kLaunches && !isMoved(place); ++launch) {
            (void)start(place, {});
        }
        return isMoved(place);
    }

    LoginSession session;
};

TEST_F(KeyMoveFaultTest, aKeyIsInTheKeyringUntilItIsInTheFile)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    if (const QString reason = whyNoKeyring(); !reason.isEmpty()) {
        GTEST_SKIP() << qPrintable(reason);
    }
    ASSERT_TRUE(session.startBus());
    ASSERT_TRUE(session.startKeyring());
    const Place untouched;
    ASSERT_TRUE(restore(untouched));
    ASSERT_EQ(start(untouched, {}).status, 0);
    const std::vector<Call> calls = untouched.calls();
    ASSERT_TRUE(isMovedSoon(untouched));
    ASSERT_GT(calls.size(), 20U) << "hardly any call was seen, so nothing was tried";

    Faults faults;
    for (const Attempt &attempt : attemptsAt(calls, isLongForm() ? Kinds::All : Kinds::OneInTurn)) {
        const Place place;
        ASSERT_TRUE(restore(place));
        const CommandRun hurt = start(place, attempt.plan());
        const auto [hasHappened, where] = whereOf(attempt, place);
        QStringList wrong;
        if (hurt.status < 0) {
            wrong.append(u"crashed or did not end: "_s + QString::fromUtf8(hurt.errors));
        }
        wrong += lost(place) + place.home.openedKeys();
        if (!isMovedSoon(place)) {
            wrong.append(u"the next starts do not move the keys"_s);
        }
        for (const QString &file : place.home.temporaries()) {
            wrong.append(u"left behind: "_s + file);
        }
        ++faults.tried;
        faults.happened += hasHappened ? 1 : 0;
        for (const QString &line : std::as_const(wrong)) {
            faults.wrong.append(where + line);
        }
    }
    printFaults("first start with keys to move", "calls", faults);
    EXPECT_GT(faults.happened, faults.tried / 2) << "most faults never happened";
    EXPECT_EQ(faults.wrong.join('\n'_L1).toStdString(), "");
}

} // namespace quorvane
