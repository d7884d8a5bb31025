#include "KeyringSession.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// No password storage answers: a launch is delayed by less than 200 ms, and nothing changes.
namespace quorvane {

namespace {

class KeyringAbsent : public testing::Test
{
  protected:
    void expectQuickAndUnchanged()
    {
        const auto milliseconds = m_session.quickestMigration();
        ASSERT_TRUE(milliseconds);
        EXPECT_LT(*milliseconds, 200);
        EXPECT_TRUE(m_session.keyFile().isNull());
    }

    KeyringSession m_session;
};

class KeyringAbsentFromBus : public KeyringAbsent
{
  protected:
    void SetUp() override
    {
        if (const QString reason = whyNoBus(); !reason.isEmpty()) {
            GTEST_SKIP() << qPrintable(reason);
        }
    }
};

} // namespace

TEST_F(KeyringAbsent, withoutABus)
{
    expectQuickAndUnchanged();
}

TEST_F(KeyringAbsent, withoutARunTimeFolder)
{
    m_session.environment().remove(u"XDG_RUNTIME_DIR"_s);
    expectQuickAndUnchanged();
}

TEST_F(KeyringAbsent, withTheAddressOfABusThatIsGone)
{
    m_session.environment().insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent/bus"_s);
    expectQuickAndUnchanged();
}

TEST_F(KeyringAbsentFromBus, withABusThatKnowsNoStorage)
{
    ASSERT_TRUE(m_session.startBus());
    expectQuickAndUnchanged();
}

TEST_F(KeyringAbsentFromBus, withAStorageThatCannotBeStarted)
{
    ASSERT_TRUE(m_session.startBus("[D-BUS Service]\nName=org.freedesktop.secrets\nExec=/bin/false\n"));
    expectQuickAndUnchanged();
}

TEST_F(KeyringAbsentFromBus, withAStorageThatStartsButNeverArrives)
{
    ASSERT_TRUE(m_session.startBus("[D-BUS Service]\nName=org.freedesktop.secrets\nExec=/bin/sleep 2\n"));
    expectQuickAndUnchanged();
}

TEST_F(KeyringAbsentFromBus, onPlasmaWithoutAWallet)
{
    m_session.environment().insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
    m_session.environment().insert(u"KDE_SESSION_VERSION"_s, u"5"_s);
    ASSERT_TRUE(m_session.startBus("[D-BUS Service]\nName=org.kde.kwalletd5\nExec=/bin/sleep 2\n"));
    expectQuickAndUnchanged();
}

} // namespace quorvane
