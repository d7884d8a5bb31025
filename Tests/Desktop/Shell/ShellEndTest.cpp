// The end of a session: display, bus and desktop go in any order, and the program is gone soon with everything saved.

#include "ShellFixture.h"

#include "Support/Desktop/PrivateSway.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class ShellEndTest : public ShellTest
{
  protected:
    /// A setting that is changed, and not looked at again before the end.
    void changeSomething()
    {
        const QDBusMessage reply = call(u"/app/quorvane/Quorvane"_s, u"app.quorvane.Quorvane1"_s, u"SetSetting"_s,
                                        {u"lastPrompt"_s, u"the last thing"_s});
        ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    }
    [[nodiscard]] QByteArray settings() const
    {
        return contentOf(session.home().path() + u"/.config/Quorvane/Quorvane.conf"_s);
    }
    void expectSaved() const { EXPECT_TRUE(settings().contains("the last thing")) << settings().constData(); }
};

TEST_F(ShellEndTest, withTheSignalTheBusGoes)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    changeSomething();
    application->signal(SIGTERM);
    session.stopBus();
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
    expectSaved();
}

TEST_F(ShellEndTest, aBusThatDoesNotAnswerHoldsNothingUp)
{
    const auto application = startAndWait();
    changeSomething();
    session.signalBus(SIGSTOP);
    application->signal(SIGTERM);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
    session.signalBus(SIGCONT);
    expectSaved();
}

TEST_F(ShellEndTest, itGoesWithTheXServer)
{
    const QString missing = PrivateXServer::missingProgram();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    PrivateXServer x({640, 480});
    ASSERT_TRUE(x.isReady());
    session.environment().insert(u"DISPLAY"_s, QString::fromLatin1(x.display()));
    session.environment().insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    // In the middle of something.
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    changeSomething();
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    click(MenuItem::GenerateNow);
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 1; }));
    x.program().signal(SIGKILL);
    EXPECT_EQ(application->waitForEnd(), 1) << application->errors().constData();
    expectSaved();
    // The next session finds nothing in its way.
    service.setMisbehaviour({});
    session.environment().insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    ASSERT_TRUE(waitFor([this] { return !isOnBus(); }));
    EXPECT_EQ(startAndWait()->isRunning(), true);
}

TEST_F(ShellEndTest, itGoesWithTheCompositor)
{
    const QString missing = PrivateSway::missingProgram();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    PrivateSway sway({{640, 480}});
    ASSERT_TRUE(sway.isReady());
    session.environment().insert(u"WAYLAND_DISPLAY"_s, sway.runtimeFolder() + u"/wayland-1"_s);
    session.environment().insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    changeSomething();
    sway.program().signal(SIGKILL);
    EXPECT_TRUE(application->ends()) << application->errors().constData();
    expectSaved();
    session.environment().insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    ASSERT_TRUE(waitFor([this] { return !isOnBus(); }));
    EXPECT_EQ(startAndWait()->isRunning(), true);
}

TEST_F(ShellEndTest, anX11SessionManagerEndsItAndDoesNotStartItAgain)
{
    const QString missing = firstMissing({u"Xvfb"_s, u"xsm"_s, u"unshare"_s});
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    // It would listen on every network, so it gets a network of its own; the way to it is a file.
    const QStringList alone{u"--map-root-user"_s, u"--net"_s};
    if (outputOf(u"unshare"_s, alone + QStringList{u"true"_s}, session.environment()).isNull()) {
        GTEST_SKIP() << "networks cannot be kept apart here";
    }
    PrivateXServer x({640, 480});
    ASSERT_TRUE(x.isReady());
    QProcessEnvironment &environment = session.environment();
    environment.insert(u"DISPLAY"_s, QString::fromLatin1(x.display()));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    // The session manager starts a shell that tells where it listens.
    const QString told = session.home().path() + u"/manager"_s;
    ASSERT_TRUE(
        putFile(session.home().path() + u"/.xsmstartup"_s, "sh -c 'echo $SESSION_MANAGER > " + told.toUtf8() + "'\n"));
    OwnedProgram manager(u"unshare"_s, alone + QStringList{u"xsm"_s}, environment, session.home().path());
    ASSERT_TRUE(waitFor([&] { return contentOf(told).endsWith('\n'); })) << manager.errors().constData();
    environment.insert(u"SESSION_MANAGER"_s, QString::fromUtf8(contentOf(told).trimmed()));

    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    changeSomething();
    manager.signal(SIGTERM); // Saves the session and ends it.
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
    expectSaved();
    const QString saved = session.home().path() + u"/.XSM-Default"_s;
    ASSERT_TRUE(waitFor([&] { return QFile::exists(saved); }));
    EXPECT_FALSE(contentOf(saved).contains("RestartCommand")) << contentOf(saved).constData();
}

} // namespace quorvane
