#include "Platform/Bus/MessageBus.h"
#include "Platform/Bus/Sandbox.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/Threads/TimeLimit.h"
#include "Support/Desktop/LoginSession.h"
#include "Support/Files.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>
#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kName = u"app.quorvane.Test"_s;
const QString kPath = u"/here"_s;

class MessageBusTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (const QString reason = whyNoBus(); !reason.isEmpty()) {
            GTEST_SKIP() << qPrintable(reason);
        }
        ASSERT_TRUE(session.startBus("[D-BUS Service]\nName=app.quorvane.Sleeper\nExec=/bin/false\n"));
    }

    [[nodiscard]] QString address() const { return session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s); }

    /// What another program sees on the bus.
    [[nodiscard]] bool isThere(const QString &baseService) const
    {
        return session.connection().interface()->isServiceRegistered(baseService).value();
    }

    mutable LoginSession session;
};

/// Takes every call and answers none.
class Silence : public QDBusVirtualObject
{
  public:
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/) override
    {
        message.setDelayedReply(true);
        return true;
    }
};

} // namespace

TEST_F(MessageBusTest, allWhoAskForAnAddressShareOneConnectionThatEndsWithTheLast)
{
    auto first = std::make_unique<MessageBus>(address());
    const QString name = first->connection().baseService();
    ASSERT_TRUE(isThere(name));
    const auto elsewhere = withinLimit(kDesktopLimit, [where = address()](const std::stop_token &) {
        return MessageBus(where).connection().baseService();
    });
    EXPECT_EQ(elsewhere, name) << "another thread has the same one";
    auto second = std::make_unique<MessageBus>(first->until(QDeadlineTimer(1000)));
    first.reset();
    EXPECT_TRUE(isThere(name));
    second.reset();
    EXPECT_TRUE(waitFor([&] { return !isThere(name); }));
}

TEST_F(MessageBusTest, afterTheBusCameBackWhoAsksAnewHasANewConnection)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", address().toUtf8());
    SessionBus lasting;
    QSignalSpy gone(&lasting, &SessionBus::disconnected);
    QSignalSpy back(&lasting, &SessionBus::connected);
    const MessageBus before(address());
    session.stopBus();
    ASSERT_TRUE(waitFor([&] { return gone.count() == 1; }));
    EXPECT_FALSE(lasting.isConnected());
    EXPECT_EQ(wordsOf(MessageBus(address()).names()), u"The session bus cannot be reached"_s);

    ASSERT_TRUE(session.startBus());
    const MessageBus after(address());
    EXPECT_TRUE(after.isConnected());
    EXPECT_FALSE(before.isConnected());
    ASSERT_TRUE(waitFor([&] { return back.count() == 1; }));
    EXPECT_EQ(lasting.connection().baseService(), after.connection().baseService());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST_F(MessageBusTest, nobodyIsStartedByBeingCalledUnlessAsked)
{
    const MessageBus bus(address(), QDeadlineTimer(20'000));
    EXPECT_FALSE(bus.isOwned(u"app.quorvane.Sleeper"_s));
    const QString quiet = wordsOf(bus.call(u"app.quorvane.Sleeper"_s, kPath, {}, u"Wake"_s));
    EXPECT_TRUE(quiet.contains(u"app.quorvane.Sleeper"_s)) << qPrintable(quiet);
    EXPECT_FALSE(quiet.contains(u"exited"_s)) << qPrintable(quiet);
    // It ends at once, which the bus tells of only when it was started.
    const QString loud = wordsOf(bus.callOrStart(u"app.quorvane.Sleeper"_s, kPath, {}, u"Wake"_s));
    EXPECT_TRUE(loud.contains(u"exited"_s)) << qPrintable(loud);
}

TEST_F(MessageBusTest, aCallEndsAtTheDeadlineAndSaysWhoIsSilent)
{
    Silence silence;
    QDBusConnection other = session.connection();
    ASSERT_TRUE(other.registerVirtualObject(kPath, &silence));
    ASSERT_TRUE(other.registerService(kName));
    const auto words = withinLimit(std::chrono::seconds(20), [where = address()](const std::stop_token &) {
        return wordsOf(MessageBus(where, QDeadlineTimer(100)).call(kName, kPath, kName, u"Speak"_s));
    });
    EXPECT_EQ(words, u"app.quorvane.Test does not answer"_s);
    other.unregisterObject(kPath);
}

TEST_F(MessageBusTest, withoutAnAddressNothingIsReached)
{
    const MessageBus nowhere{QString()};
    EXPECT_FALSE(nowhere.isConnected());
    EXPECT_EQ(wordsOf(nowhere.names()), u"The session bus cannot be reached"_s);
    EXPECT_FALSE(nowhere.isOwned(kName));
}

TEST(Sandbox, isToldByItsFileOrByTheVariable)
{
    const QByteArray before = qgetenv("container");
    qputenv("container", "flatpak");
    EXPECT_TRUE(isSandboxed());
    qputenv("container", "podman");
    EXPECT_EQ(isSandboxed(), QFile::exists(u"/.flatpak-info"_s));
    before.isNull() ? qunsetenv("container") : qputenv("container", before);
}

} // namespace quorvane
