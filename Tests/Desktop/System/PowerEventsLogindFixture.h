#pragma once

#include "Platform/System/PowerEventsLogind.h"

#include "Support/Desktop/OwnedProgram.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace quorvane {

using namespace Qt::StringLiterals;

inline const QString kLogind = u"org.freedesktop.login1"_s;
inline const QString kStranger = u"a stranger"_s;

/// A "system" bus of the test's own, and a logind that is its name and its signal.
class PowerEventsLogindTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (!firstMissing({u"dbus-daemon"_s}).isEmpty()) {
            GTEST_SKIP() << "dbus-daemon is not installed";
        }
        m_environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
        const QStringList options{u"--session"_s, u"--nofork"_s, u"--print-address=1"_s,
                                  u"--address=unix:dir="_s + m_folder.path()};
        m_bus = std::make_unique<OwnedProgram>(u"dbus-daemon"_s, options, m_environment, m_folder.path());
        m_address = QString::fromUtf8(m_bus->readLine());
        ASSERT_FALSE(m_address.isEmpty()) << m_bus->errors().constData();
        ASSERT_TRUE(QDBusConnection::connectToBus(m_address, kStranger).isConnected());
        m_ours = std::make_unique<MessageBus>(m_address);
        m_events = std::make_unique<PowerEventsLogind>(*m_ours);
        m_wakings = std::make_unique<QSignalSpy>(m_events.get(), &PowerEvents::woke);
        ASSERT_TRUE(m_ours->connection().connect(QString(), QString(), QString(), u"Last"_s, &m_last, SLOT(quit())));
        // The bus has heard of both connections once it has answered something later.
        ASSERT_FALSE(m_ours->connection().interface()->isServiceRegistered(kLogind).value());
    }

    ~PowerEventsLogindTest() override
    {
        m_events.reset();
        for (const QString &name : {kLogind, kStranger}) {
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
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, name);
        signal.setArguments(arguments);
        ASSERT_TRUE(QDBusConnection(sender).send(signal));
    }

    static void tell(bool isStarting, const QString &sender = kLogind)
    {
        send(sender, u"PrepareForSleep"_s, {isStarting});
    }

    /// How often we were woken by everything that sender told before; negative when that never arrived.
    [[nodiscard]] qsizetype wakings(const QString &sender = kLogind)
    {
        // A bus keeps the order of what one sends, so what comes last comes after everything before it.
        send(sender, u"Last"_s);
        QTimer::singleShot(std::chrono::seconds(20), &m_last, [this] { m_last.exit(1); });
        return m_last.exec() == 0 ? m_wakings->count() : -1;
    }

    /// The first line of the program that listens to the system bus of its environment.
    [[nodiscard]] QByteArray probe(const QString &address)
    {
        m_environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, address);
        return OwnedProgram(QStringLiteral(SYSTEM_EVENTS_PROBE), {u"power"_s}, m_environment, m_folder.path())
            .readLine();
    }

    QTemporaryDir m_folder;
    QEventLoop m_last;
    QProcessEnvironment m_environment;
    QString m_address;
    std::unique_ptr<OwnedProgram> m_bus;
    std::unique_ptr<MessageBus> m_ours;
    std::unique_ptr<PowerEventsLogind> m_events;
    std::unique_ptr<QSignalSpy> m_wakings;
};

} // namespace quorvane
