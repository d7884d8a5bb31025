#include "ShellInstanceFixture.h"

#include "Support/WaitFor.h"

#include <QFile>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(ShellInstanceTest, everyEndSignalEndsItCleanlyWithWindowsOpen)
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        const auto application = startAndWait({});
        ASSERT_TRUE(application->says("main opened"));
        application->signal(number);
        EXPECT_EQ(application->waitForEnd(), 0) << number << application->errors().constData();
        EXPECT_EQ(application->count("main closed"), 1);
        EXPECT_TRUE(waitFor([this] { return !isOnBus(); }));
    }
}

TEST_F(ShellInstanceTest, quitEndsItAndTheNextStartIsTheApplication)
{
    const auto first = startAndWait();
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    EXPECT_FALSE(isOnBus());
    EXPECT_EQ(first->waitForEnd(), 0);
    const CommandRun none = command({u"quit"_s});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.errors, "quorvane: the application is not running\n");
    const auto next = startAndWait();
    EXPECT_TRUE(next->isRunning());
}

TEST_F(ShellInstanceTest, quitReturnsWhenTheProcessHasEnded)
{
    session.environment().insert(u"TEST_SLOW_END"_s, u"yes"_s);
    const auto application = startAndWait();
    session.environment().remove(u"TEST_SLOW_END"_s);
    Application quit(session.environment(), {u"quit"_s}, QStringLiteral(QUORVANE_PROGRAM));
    ASSERT_TRUE(waitFor([this] { return !isOnBus(); }));
    // By now a quit that waits for the name alone would be over: a whole other command has its time in between.
    EXPECT_EQ(command({u"settings"_s}).status, 0);
    EXPECT_TRUE(quit.isRunning());
    EXPECT_TRUE(application->isRunning());
    application->tell("end");
    EXPECT_EQ(quit.waitForEnd(), 0) << quit.errors().constData();
    EXPECT_EQ(application->waitForEnd(), 0);
}

TEST_F(ShellInstanceTest, whoWaitsForAnUpscaleThatTheEndCutsShortLearnsOfTheOriginal)
{
    const auto application = startAndWait();
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"grok"_s}, "KEY").status, 0);
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    ASSERT_EQ(command({u"settings"_s, u"providerOverride"_s, u"grok"_s}).status, 0);
    ASSERT_EQ(command({u"settings"_s, u"fourKEnabled"_s, u"true"_s}).status, 0);
    service.setResponder([](const HttpRequest &request) -> std::optional<WireScript> {
        return request.path.contains("generateContent") ? std::optional(WireScript().hang()) : std::nullopt;
    });
    QProcess waiting;
    waiting.setProcessEnvironment(session.environment());
    waiting.start(QStringLiteral(QUORVANE_PROGRAM), {u"generate"_s, u"--prompt"_s, u"a lake"_s, u"--json"_s});
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 2; }));
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    ASSERT_TRUE(waitFor([&waiting] { return waiting.state() == QProcess::NotRunning; }));
    EXPECT_EQ(waiting.exitCode(), 1);
    const QJsonValue value = QJsonDocument::fromJson("[" + waiting.readAllStandardOutput() + "]").array().first();
    EXPECT_TRUE(value["isError"_L1].toBool());
    EXPECT_EQ(value["status"_L1].toString(), u"Upscale failed: Quorvane is quitting"_s);
    EXPECT_TRUE(QFile::exists(value["original"_L1].toString())) << value["original"_L1].toString().toStdString();
    EXPECT_TRUE(value["file"_L1].isNull());
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

TEST_F(ShellInstanceTest, endsInTheMiddleOfAGeneration)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    click(MenuItem::GenerateNow); // Disabled, for want of a prompt.
    ASSERT_EQ(command({u"settings"_s, u"lastPrompt"_s, u"a lake"_s}).status, 0);
    click(MenuItem::GenerateNow);
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 1; }));
    application->signal(SIGTERM);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
