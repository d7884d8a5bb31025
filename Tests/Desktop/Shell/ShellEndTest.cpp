// The end of a session: display, bus and desktop go in any order, and the program is gone soon with everything saved.

#include "ShellSession.h"

#include "Support/Files.h"
#include "Support/PrivateSway.h"
#include "Support/PrivateXServer.h"
#include "Support/WaitFor.h"

namespace quorvane {

class ShellEndTest : public ShellTest
{
  protected:
    /// A setting that is changed, and not looked at again before the end.
    void changeSomething()
    {
        const QDBusMessage reply =
            call(QStringLiteral("/app/quorvane/Quorvane"), QStringLiteral("app.quorvane.Quorvane1"),
                 QStringLiteral("SetSetting"), {QStringLiteral("lastPrompt"), QStringLiteral("the last thing")});
        ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    }
    [[nodiscard]] QByteArray settings() const
    {
        return contentOf(session.home().path() + QStringLiteral("/.config/Quorvane/Quorvane.conf"));
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
    session.environment().insert(QStringLiteral("DISPLAY"), QString::fromLatin1(x.display()));
    session.environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    // In the middle of something.
    ASSERT_EQ(command({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY").status, 0);
    changeSomething();
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    click(MenuItem::GenerateNow);
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 1; }));
    x.program().signal(SIGKILL);
    EXPECT_EQ(application->waitForEnd(), 1) << application->errors().constData();
    expectSaved();
    // The next session finds nothing in its way.
    service.setMisbehaviour({});
    session.environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
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
    session.environment().insert(QStringLiteral("WAYLAND_DISPLAY"),
                                 sway.runtimeFolder() + QStringLiteral("/wayland-1"));
    session.environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    changeSomething();
    sway.program().signal(SIGKILL);
    EXPECT_TRUE(application->ends()) << application->errors().constData();
    expectSaved();
    session.environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    ASSERT_TRUE(waitFor([this] { return !isOnBus(); }));
    EXPECT_EQ(startAndWait()->isRunning(), true);
}

TEST_F(ShellEndTest, anX11SessionManagerEndsItAndDoesNotStartItAgain)
{
    const QString missing = firstMissing({QStringLiteral("Xvfb"), QStringLiteral("xsm"), QStringLiteral("unshare")});
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    // It would listen on every network, so it gets a network of its own; the way to it is a file.
    const QStringList alone{QStringLiteral("--map-root-user"), QStringLiteral("--net")};
    if (outputOf(QStringLiteral("unshare"), alone + QStringList{QStringLiteral("true")}, session.environment())
            .isNull()) {
        GTEST_SKIP() << "networks cannot be kept apart here";
    }
    PrivateXServer x({640, 480});
    ASSERT_TRUE(x.isReady());
    QProcessEnvironment &environment = session.environment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(x.display()));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // The session manager starts a shell that tells where it listens.
    const QString told = session.home().path() + QStringLiteral("/manager");
    ASSERT_TRUE(putFile(session.home().path() + QStringLiteral("/.xsmstartup"),
                        "sh -c 'echo $SESSION_MANAGER > " + told.toUtf8() + "'\n"));
    OwnedProgram manager(QStringLiteral("unshare"), alone + QStringList{QStringLiteral("xsm")}, environment,
                         session.home().path());
    ASSERT_TRUE(waitFor([&] { return contentOf(told).endsWith('\n'); })) << manager.errors().constData();
    environment.insert(QStringLiteral("SESSION_MANAGER"), QString::fromUtf8(contentOf(told).trimmed()));

    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    changeSomething();
    manager.signal(SIGTERM); // Saves the session and ends it.
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
    expectSaved();
    const QString saved = session.home().path() + QStringLiteral("/.XSM-Default");
    ASSERT_TRUE(waitFor([&] { return QFile::exists(saved); }));
    EXPECT_FALSE(contentOf(saved).contains("RestartCommand")) << contentOf(saved).constData();
}

} // namespace quorvane
