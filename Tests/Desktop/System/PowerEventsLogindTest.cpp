#include "Platform/System/PowerEventsLogind.h"

#include "Support/OwnedProgram.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace quorvane {

namespace {

const QString kLogind = QStringLiteral("org.freedesktop.login1");
const QString kStranger = QStringLiteral("a stranger");
const QString kOurs = QStringLiteral("ours");

/// A "system" bus of the test's own, and a logind that is its name and its signal.
class PowerEventsLogindTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (!firstMissing({QStringLiteral("dbus-daemon")}).isEmpty()) {
            GTEST_SKIP() << "dbus-daemon is not installed";
        }
        m_environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
        const QStringList options{QStringLiteral("--session"), QStringLiteral("--nofork"),
                                  QStringLiteral("--print-address=1"),
                                  QStringLiteral("--address=unix:dir=") + m_folder.path()};
        m_bus = std::make_unique<OwnedProgram>(QStringLiteral("dbus-daemon"), options, m_environment, m_folder.path());
        m_address = QString::fromUtf8(m_bus->readLine());
        ASSERT_FALSE(m_address.isEmpty()) << m_bus->errors().constData();
        ASSERT_TRUE(QDBusConnection::connectToBus(m_address, kStranger).isConnected());
        m_events = std::make_unique<PowerEventsLogind>(QDBusConnection::connectToBus(m_address, kOurs));
        m_wakings = std::make_unique<QSignalSpy>(m_events.get(), &PowerEvents::woke);
        ASSERT_TRUE(QDBusConnection(kOurs).connect(QString(), QString(), QString(), QStringLiteral("Last"), &m_last,
                                                   SLOT(quit())));
        // The bus has heard of both connections once it has answered something later.
        ASSERT_FALSE(QDBusConnection(kOurs).interface()->isServiceRegistered(kLogind).value());
    }

    ~PowerEventsLogindTest() override
    {
        m_events.reset();
        for (const QString &name : {kLogind, kStranger, kOurs}) {
            QDBusConnection::disconnectFromBus(name);
        }
    }

    void startLogind()
    {
        QDBusConnection logind = QDBusConnection::connectToBus(m_address, kLogind);
        ASSERT_TRUE(logind.registerService(kLogind)) << logind.lastError().message().toStdString();
    }

    static void stopLogind()
    {
        ASSERT_TRUE(QDBusConnection(kLogind).unregisterService(kLogind));
        QDBusConnection::disconnectFromBus(kLogind);
    }

    static void send(const QString &sender, const QString &name, const QVariantList &arguments = {})
    {
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/login1"),
                                                         QStringLiteral("org.freedesktop.login1.Manager"), name);
        signal.setArguments(arguments);
        ASSERT_TRUE(QDBusConnection(sender).send(signal));
    }

    static void tell(bool isStarting, const QString &sender = kLogind)
    {
        send(sender, QStringLiteral("PrepareForSleep"), {isStarting});
    }

    /// How often we were woken by everything that sender told before; negative when that never arrived.
    [[nodiscard]] qsizetype wakings(const QString &sender = kLogind)
    {
        // A bus keeps the order of what one sends, so what comes last comes after everything before it.
        send(sender, QStringLiteral("Last"));
        QTimer::singleShot(std::chrono::seconds(20), &m_last, [this] { m_last.exit(1); });
        return m_last.exec() == 0 ? m_wakings->count() : -1;
    }

    /// The first line of the program that listens to the system bus of its environment.
    [[nodiscard]] QByteArray probe(const QString &address)
    {
        m_environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), address);
        return OwnedProgram(QStringLiteral(SYSTEM_EVENTS_PROBE), {QStringLiteral("power")}, m_environment,
                            m_folder.path())
            .readLine();
    }

    QTemporaryDir m_folder;
    QEventLoop m_last;
    QProcessEnvironment m_environment;
    QString m_address;
    std::unique_ptr<OwnedProgram> m_bus;
    std::unique_ptr<PowerEventsLogind> m_events;
    std::unique_ptr<QSignalSpy> m_wakings;
};

} // namespace

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

TEST_F(PowerEventsLogindTest, nobodyElseCanWakeUs)
{
    startLogind();
    tell(false, kStranger);
    EXPECT_EQ(wakings(kStranger), 0);
    stopLogind();
    tell(false, kStranger);
    EXPECT_EQ(wakings(kStranger), 0);
}

TEST_F(PowerEventsLogindTest, aSignalOfAnotherShapeIsIgnored)
{
    startLogind();
    send(kLogind, QStringLiteral("PrepareForSleep"));
    send(kLogind, QStringLiteral("PrepareForSleep"), {QStringLiteral("false")});
    EXPECT_EQ(wakings(), 0);
    tell(false);
    EXPECT_EQ(wakings(), 1);
}

TEST_F(PowerEventsLogindTest, theSystemBusOfTheEnvironmentIsListenedTo)
{
    EXPECT_EQ(probe(m_address), "ready");
}

TEST_F(PowerEventsLogindTest, withoutASystemBusThereIsNothingToListenTo)
{
    EXPECT_EQ(probe(QStringLiteral("unix:path=/nonexistent/bus")), "none");
}

/// The mock that other programs are tested with sends the signal by a call.
TEST_F(PowerEventsLogindTest, theCommonMockOfLogindWakesUsToo)
{
    const QString python = QStringLiteral("/usr/bin/python3");
    m_environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), m_address);
    if (outputOf(python, {QStringLiteral("-c"), QStringLiteral("import dbusmock")}, m_environment).isNull()) {
        GTEST_SKIP() << "python3-dbusmock is not installed";
    }
    QEventLoop appeared;
    QDBusServiceWatcher watcher(kLogind, QDBusConnection(kOurs), QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &appeared, [&appeared] { appeared.quit(); });
    QTimer::singleShot(std::chrono::seconds(20), &appeared, [&appeared] { appeared.exit(1); });
    const OwnedProgram mock(python,
                            {QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--system"),
                             QStringLiteral("--template"), QStringLiteral("logind")},
                            m_environment, m_folder.path());
    ASSERT_EQ(appeared.exec(), 0);

    QDBusMessage emission =
        QDBusMessage::createMethodCall(kLogind, QStringLiteral("/org/freedesktop/login1"),
                                       QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("EmitSignal"));
    emission.setArguments({QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"),
                           QStringLiteral("b"), QVariantList{false}});
    // The mock has its name a moment before it has its objects.
    ASSERT_TRUE(waitFor([&] { return QDBusConnection(kOurs).call(emission).type() == QDBusMessage::ReplyMessage; }));
    EXPECT_TRUE(waitFor([this] { return m_wakings->count() == 1; }));
}

} // namespace quorvane
