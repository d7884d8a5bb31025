#include "Desktop/System/PowerEventsLogindFixture.h"

#include "Support/WaitFor.h"

#include <QDBusServiceWatcher>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(PowerEventsLogindTest, eachWakingIsToldOnceAndFallingAsleepIsNot)
{
    startLogind();
    tell(true);
    EXPECT_EQ(wakings(), 0);
    tell(false);
    EXPECT_EQ(wakings(), 1);
    tell(true);
    tell(false);
    EXPECT_EQ(wakings(), 2);
}

TEST_F(PowerEventsLogindTest, logindMayStartLaterAndAgain)
{
    for (int start = 1; start <= 3; ++start) {
        startLogind();
        tell(true);
        tell(false);
        EXPECT_EQ(wakings(), start);
        stopLogind();
    }
}

TEST_F(PowerEventsLogindTest, theSystemBusOfTheEnvironmentIsListenedTo)
{
    EXPECT_EQ(probe(m_address), "ready");
}

/// The mock that other programs are tested with sends the signal by a call.
TEST_F(PowerEventsLogindTest, theCommonMockOfLogindWakesUsToo)
{
    const QString python = u"/usr/bin/python3"_s;
    m_environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, m_address);
    if (outputOf(python, {u"-c"_s, u"import dbusmock"_s}, m_environment).isNull()) {
        GTEST_SKIP() << "python3-dbusmock is not installed";
    }
    QEventLoop appeared;
    QDBusServiceWatcher watcher(kLogind, m_ours->connection(), QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &appeared, [&appeared] { appeared.quit(); });
    QTimer::singleShot(std::chrono::seconds(20), &appeared, [&appeared] { appeared.exit(1); });
    const OwnedProgram mock(python, {u"-m"_s, u"dbusmock"_s, u"--system"_s, u"--template"_s, u"logind"_s},
                            m_environment, m_folder.path());
    ASSERT_EQ(appeared.exec(), 0);

    QDBusMessage emission = QDBusMessage::createMethodCall(kLogind, u"/org/freedesktop/login1"_s,
                                                           u"org.freedesktop.DBus.Mock"_s, u"EmitSignal"_s);
    emission.setArguments({u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, u"b"_s, QVariantList{false}});
    // The mock has its name a moment before it has its objects.
    ASSERT_TRUE(waitFor([&] { return m_ours->connection().call(emission).type() == QDBusMessage::ReplyMessage; }));
    EXPECT_TRUE(waitFor([this] { return m_wakings->count() == 1; }));
}

} // namespace quorvane
