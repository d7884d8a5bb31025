#include "Platform/System/AutostartPortal.h"
#include "Desktop/Keyring/KeyringSession.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

// The Background portal as a sandboxed program sees it, played by an object of the test's own on a private bus.
namespace quorvane {

namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");

/// Keeps an autostart entry as the portal does: what a request does not name is ended by it.
class Portal : public QDBusVirtualObject
{
  public:
    enum class User { Agrees, Refuses, SaysNothing };

    Portal(QDBusConnection bus, User user)
        : m_bus(std::move(bus))
        , m_user(user)
    {
        EXPECT_TRUE(m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this));
        EXPECT_TRUE(m_bus.registerService(kPortal));
    }

    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.interface() != QLatin1String("org.freedesktop.portal.Background") ||
            message.member() != QLatin1String("RequestBackground") || message.signature() != QLatin1String("sa{sv}")) {
            return false;
        }
        options = qdbus_cast<QVariantMap>(message.arguments().at(1));
        QString sender = message.service().mid(1);
        sender.replace(QLatin1Char('.'), QLatin1Char('_'));
        const QString path =
            QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                .arg(sender, options.value(QStringLiteral("handle_token"), QStringLiteral("none")).toString());
        // The signal may come before the reply.
        if (m_user != User::SaysNothing) {
            hasEntry = m_user == User::Agrees && options.value(QStringLiteral("autostart")).toBool();
            QDBusMessage response = QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Request"),
                                                               QStringLiteral("Response"));
            response.setArguments(
                {m_user == User::Agrees ? 0U : 1U, QVariantMap{{QStringLiteral("background"), m_user == User::Agrees},
                                                               {QStringLiteral("autostart"), hasEntry}}});
            connection.send(response);
        }
        return connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
    }

    QVariantMap options; ///< Of the last request.
    bool hasEntry = false;

  private:
    QDBusConnection m_bus;
    User m_user;
};

class AutostartPortal : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (const QString reason = whyNoBus(); !reason.isEmpty()) {
            GTEST_SKIP() << qPrintable(reason);
        }
        ASSERT_TRUE(m_session.startBus());
    }
    void TearDown() override { QDBusConnection::disconnectFromBus(m_name); }

    [[nodiscard]] std::optional<QString> ask(Autostart autostart,
                                             std::chrono::milliseconds limit = std::chrono::seconds(20)) const
    {
        const QString address = m_session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
        return askPortalForAutostart(QDBusConnection::connectToBus(address, m_name), autostart, limit);
    }

    const QString m_name = QStringLiteral("the sandboxed program");
    mutable KeyringSession m_session;
};

} // namespace

TEST_F(AutostartPortal, isSwitchedOnAndOff)
{
    const Portal portal(m_session.connection(), Portal::User::Agrees);
    EXPECT_EQ(ask(Autostart::On), std::nullopt);
    EXPECT_TRUE(portal.hasEntry);
    EXPECT_EQ(portal.options.value(QStringLiteral("commandline")).toStringList(),
              (QStringList{QStringLiteral("quorvane"), QStringLiteral("--hidden")}));
    EXPECT_EQ(ask(Autostart::Off), std::nullopt);
    EXPECT_FALSE(portal.hasEntry);
    // Said, not left out.
    EXPECT_EQ(portal.options.value(QStringLiteral("autostart")).typeId(), QMetaType::Bool);
}

TEST_F(AutostartPortal, aRefusalIsAProblemOnlyForOn)
{
    const Portal portal(m_session.connection(), Portal::User::Refuses);
    EXPECT_EQ(ask(Autostart::On), QStringLiteral("the desktop did not allow the change"));
    EXPECT_EQ(ask(Autostart::Off), std::nullopt);
}

TEST_F(AutostartPortal, withoutOneTheReasonIsTold)
{
    const std::optional<QString> problem = ask(Autostart::On);
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->contains(kPortal)) << qPrintable(*problem);
}

TEST_F(AutostartPortal, anUnansweredQuestionEnds)
{
    const Portal portal(m_session.connection(), Portal::User::SaysNothing);
    EXPECT_EQ(ask(Autostart::On, std::chrono::milliseconds(100)),
              QStringLiteral("the desktop did not answer whether Quorvane may start with the session"));
}

} // namespace quorvane
