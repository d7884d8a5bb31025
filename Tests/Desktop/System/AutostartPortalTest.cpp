#include "Platform/System/AutostartPortal.h"
#include "Support/Desktop/LoginSession.h"
#include "Support/Results.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The Background portal as a sandboxed program sees it, played by an object of the test's own on a private bus.
namespace quorvane {

namespace {

const QString kPortal = u"org.freedesktop.portal.Desktop"_s;

/// Keeps an autostart entry as the portal does: what a request does not name is ended by it.
class Portal : public QDBusVirtualObject
{
  public:
    enum class User { Agrees, Refuses, SaysNothing };

    Portal(QDBusConnection bus, User user)
        : m_bus(std::move(bus))
        , m_user(user)
    {
        EXPECT_TRUE(m_bus.registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, this));
        EXPECT_TRUE(m_bus.registerService(kPortal));
    }

    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.interface() != "org.freedesktop.portal.Background"_L1 ||
            message.member() != "RequestBackground"_L1 || message.signature() != "sa{sv}"_L1) {
            return false;
        }
        options = qdbus_cast<QVariantMap>(message.arguments().at(1));
        QString sender = message.service().mid(1);
        sender.replace('.'_L1, '_'_L1);
        const QString path = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(
            sender, options.value(u"handle_token"_s, u"none"_s).toString());
        // The signal may come before the reply.
        if (m_user != User::SaysNothing) {
            hasEntry = m_user == User::Agrees && options.value(u"autostart"_s).toBool();
            QDBusMessage response =
                QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
            response.setArguments({m_user == User::Agrees ? 0U : 1U,
                                   QVariantMap{{u"background"_s, m_user == User::Agrees}, {u"autostart"_s, hasEntry}}});
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

    [[nodiscard]] Result<> ask(Autostart autostart, std::chrono::milliseconds limit = std::chrono::seconds(20)) const
    {
        const QString address = m_session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s);
        return askPortalForAutostart(MessageBus(address), autostart, limit);
    }

    mutable LoginSession m_session;
};

} // namespace

TEST_F(AutostartPortal, isSwitchedOnAndOff)
{
    const Portal portal(m_session.connection(), Portal::User::Agrees);
    EXPECT_EQ(ask(Autostart::On), kDone);
    EXPECT_TRUE(portal.hasEntry);
    EXPECT_EQ(portal.options.value(u"commandline"_s).toStringList(), (QStringList{u"quorvane"_s, u"--hidden"_s}));
    EXPECT_EQ(ask(Autostart::Off), kDone);
    EXPECT_FALSE(portal.hasEntry);
    // Said, not left out.
    EXPECT_EQ(portal.options.value(u"autostart"_s).typeId(), QMetaType::Bool);
}

TEST_F(AutostartPortal, aRefusalIsAProblemOnlyForOn)
{
    const Portal portal(m_session.connection(), Portal::User::Refuses);
    EXPECT_EQ(ask(Autostart::On), Failure{u"the desktop did not allow the change"_s});
    EXPECT_EQ(ask(Autostart::Off), kDone);
}

TEST_F(AutostartPortal, withoutOneTheReasonIsTold)
{
    const QString problem = wordsOf(ask(Autostart::On));
    EXPECT_TRUE(problem.contains(kPortal)) << qPrintable(problem);
}

TEST_F(AutostartPortal, anUnansweredQuestionEnds)
{
    const Portal portal(m_session.connection(), Portal::User::SaysNothing);
    EXPECT_EQ(ask(Autostart::On, std::chrono::milliseconds(100)),
              Failure{u"the desktop did not answer whether Quorvane may start with the session"_s});
}

} // namespace quorvane
