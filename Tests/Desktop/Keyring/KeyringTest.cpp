#include "KeyringSession.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

// The old keys in a real keyring daemon, read and deleted by a process of its own as at a launch of the program.
namespace quorvane {

namespace {

class Keyring : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (const QString reason = whyNoKeyring(); !reason.isEmpty()) {
            GTEST_SKIP() << qPrintable(reason);
        }
        ASSERT_TRUE(m_session.startBus());
        ASSERT_TRUE(m_session.startKeyring());
    }

    KeyringSession m_session;
    const QString m_gemini = u"gemini-api-key"_s;
    const QString m_grok = u"grok-api-key"_s;
    const QString m_openai = u"openai-api-key"_s;
};

} // namespace

TEST_F(Keyring, itemsMoveIntoTheKeyFile)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "ké 1"));
    ASSERT_TRUE(m_session.runHelper({u"write"_s, m_grok, u"text"_s, u"ké 2"_s}));
    ASSERT_TRUE(m_session.runHelper({u"write"_s, m_openai, u"binary"_s, u"ké 3"_s}));
    ASSERT_TRUE(m_session.secret(m_grok) && m_session.secret(m_openai));
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"ké 1\",\"grok\":\"ké 2\",\"openai\":\"ké 3\"}");
    for (const QString &account : {m_gemini, m_grok, m_openai}) {
        EXPECT_EQ(m_session.secret(account), std::nullopt) << qPrintable(account);
    }
}

TEST_F(Keyring, anEmptyKeyringChangesNothingAndTakesNoTime)
{
    const auto milliseconds = m_session.quickestMigration();
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 200);
    EXPECT_TRUE(m_session.keyFile().isNull());
}

TEST_F(Keyring, aKeyInTheFileWinsAndTheItemIsStillDeleted)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "first"));
    ASSERT_TRUE(m_session.migrate());
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "second"));
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"first\"}");
    EXPECT_EQ(m_session.secret(m_gemini), std::nullopt);
}

TEST_F(Keyring, anItemThatIsNoTextIsNeitherCopiedNorDeleted)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "k\xff"));
    ASSERT_TRUE(m_session.storeSecret(m_grok, "k2"));
    for (int launch = 0; launch < 2; ++launch) {
        ASSERT_TRUE(m_session.migrate());
        EXPECT_EQ(m_session.keyFile(), "{\"grok\":\"k2\"}");
        EXPECT_EQ(m_session.secret(m_gemini), "k\xff");
        EXPECT_EQ(m_session.secret(m_grok), std::nullopt);
    }
}

TEST_F(Keyring, itemsOfOtherProgramsAreLeftAlone)
{
    const QString other = u"org.example.other"_s;
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "theirs", other));
    ASSERT_TRUE(m_session.storeSecret(m_grok, "another kind", u"app.quorvane.Quorvane"_s, u"org.example"_s));
    ASSERT_TRUE(m_session.migrate());
    EXPECT_TRUE(m_session.keyFile().isNull());
    EXPECT_EQ(m_session.secret(m_gemini, other), "theirs");
    EXPECT_EQ(m_session.secret(m_grok), "another kind");
}

TEST_F(Keyring, aLockedKeyringDelaysNothingAndLosesNothing)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "k1"));
    ASSERT_TRUE(m_session.lockKeyring());
    const auto milliseconds = m_session.quickestMigration();
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 200);
    EXPECT_TRUE(m_session.keyFile().isNull());

    // The next login unlocks it.
    m_session.stopKeyring();
    ASSERT_TRUE(m_session.startKeyring());
    EXPECT_EQ(m_session.secret(m_gemini), "k1");
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"k1\"}");
    EXPECT_EQ(m_session.secret(m_gemini), std::nullopt);
}

TEST_F(Keyring, aDaemonThatDoesNotAnswerDelaysLittleAndLosesNothing)
{
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "k1"));
    ASSERT_EQ(::kill(static_cast<pid_t>(m_session.keyringPid()), SIGSTOP), 0);
    const auto milliseconds = m_session.quickestMigration();
    ASSERT_EQ(::kill(static_cast<pid_t>(m_session.keyringPid()), SIGCONT), 0);
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 200);
    EXPECT_TRUE(m_session.keyFile().isNull());
    ASSERT_TRUE(m_session.migrate());
    EXPECT_EQ(m_session.keyFile(), "{\"gemini\":\"k1\"}");
}

TEST_F(Keyring, withoutTheEventLoopOfTheDesktopLibrariesNothingIsLostOrDelayedForLong)
{
    // QtKeychain's answers then never arrive.
    ASSERT_TRUE(m_session.storeSecret(m_gemini, "k1"));
    m_session.environment().insert(u"QT_NO_GLIB"_s, u"1"_s);
    const auto milliseconds = m_session.migrate();
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 5000);
    EXPECT_TRUE(m_session.keyFile().isNull());
    EXPECT_EQ(m_session.secret(m_gemini), "k1");
}

} // namespace quorvane
