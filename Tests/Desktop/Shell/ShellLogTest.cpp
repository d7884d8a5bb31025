// What the program says of itself, and what it never says.

#include "ShellFixture.h"

#include "Support/WaitFor.h"

#include <QDir>
#include <QImage>

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Not upscaling, which is the service's here.
constexpr std::array kCategories{
    "quorvane.desktop: ", "quorvane.bus: ", "quorvane.network: ", "quorvane.library: ", "quorvane.windows: "};
const QByteArray kKey = "known-key-47110815";
const QString kPrompt = u"a known prompt of zinc and heather"_s;

/// Everything that was said, by the application and by the commands that it carried out.
class ShellLogTest : public ShellTest
{
  protected:
    /// One working day: key, prompt, picture, larger picture, failure, deletion, window.
    void workThrough()
    {
        const auto application = startAndWait({});
        ASSERT_TRUE(application->says("main opened"));
        const auto run = [this](const QStringList &arguments, const QByteArray &input = {}) {
            const CommandRun made = command(arguments, input);
            said += made.errors + made.output;
            return made.status;
        };
        EXPECT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, kKey + '\n'), 0);
        EXPECT_EQ(run({u"generate"_s, u"--prompt"_s, kPrompt}), 0);
        QImage source(16, 9, QImage::Format_RGB32);
        source.fill(Qt::red);
        const QString older = session.home().library() + u"/older.png"_s;
        ASSERT_TRUE(QDir().mkpath(session.home().library()) && source.save(older));
        EXPECT_EQ(run({u"upscale"_s, u"older.png"_s}), 0);
        // The service repeats what it was sent.
        Misbehaviour echo(Misbehaviour::Kind::ErrorObject);
        echo.text = "no " + kPrompt.toUtf8() + " for " + kKey;
        service.setMisbehaviour(echo);
        const CommandRun refused = command({u"generate"_s});
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(refused.errors.contains(kPrompt.toUtf8())) << "the user is told, the log is not";
        EXPECT_EQ(run({u"delete"_s, u"older.png"_s}), 0);
        application->tell("Ctrl+Q");
        EXPECT_TRUE(application->says("main closed"));
        EXPECT_EQ(run({u"quit"_s}), 0);
        EXPECT_EQ(application->waitForEnd(), 0);
        said += application->errors();
    }

    QByteArray said;
};

} // namespace

TEST_F(ShellLogTest, nothingIsSaidUnasked)
{
    workThrough();
    for (const char *category : kCategories) {
        EXPECT_FALSE(said.contains(category)) << said.constData();
    }
}

TEST_F(ShellLogTest, askedForEverythingItNamesNeitherKeyNorPrompt)
{
    session.environment().insert(u"QT_LOGGING_RULES"_s, u"quorvane.*=true"_s);
    workThrough();
    for (const char *category : kCategories) {
        EXPECT_TRUE(said.contains(category)) << category << '\n' << said.constData();
    }
    EXPECT_FALSE(said.contains(kKey)) << said.constData();
    EXPECT_FALSE(said.contains(kPrompt.toUtf8())) << said.constData();
}

} // namespace quorvane
