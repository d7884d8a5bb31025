#include "Integration/CommandsFixture.h"

#include "Support/Files.h"
#include "Support/SmallDisk.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(CommandsTest, keysAreListedByIdAndNeverPrinted)
{
    EXPECT_EQ(run({u"key"_s, u"list"_s, u"--json"_s}).output, "[]\n");
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"openai"_s}, "SECRET\n").status, 0);
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "two\n\n").status, 0);
    EXPECT_EQ(run({u"key"_s, u"list"_s, u"--json"_s}).output, "[\"grok\",\"openai\"]\n");
    EXPECT_EQ(run({u"key"_s, u"list"_s}).output, "grok\nopenai\n");
    const QString file = home.path() + u"/Library/Application Support/Quorvane/keys.json"_s;
    // One trailing line break goes, a second one stays.
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\",\"openai\":\"SECRET\"}");
    for (const char *command : {"status", "settings", "history", "albums"}) {
        const CommandRun told = run({QLatin1String(command), u"--json"_s});
        EXPECT_EQ(told.status, 0);
        EXPECT_FALSE(told.output.contains("SECRET") || told.errors.contains("SECRET")) << command;
    }
    EXPECT_EQ(run({u"key"_s, u"delete"_s, u"openai"_s}).status, 0);
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\"}");
    EXPECT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "\n").status, 1);
    EXPECT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "\xff\xfe").status, 1);
    EXPECT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, QByteArray(100000, 'k')).status, 1);
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\"}");
}

TEST_F(CommandsTest, aKeyThatIsNotKeptIsTold)
{
    const QString folder = home.path() + u"/Library/Application Support/Quorvane"_s;
    const SmallDisk disk(folder, "size=8k");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "OLD").status, 0);
    QFile ballast(folder + u"/ballast"_s);
    ASSERT_TRUE(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (ballast.write(QByteArray(512, 'x')) > 0) {
    }
    for (const QStringList &change : {QStringList{u"set"_s, u"gemini"_s}, {u"delete"_s, u"grok"_s}}) {
        const CommandRun told = run(QStringList{u"key"_s} + change, "SECRET");
        EXPECT_EQ(told.status, 1) << change.first().toStdString();
        EXPECT_TRUE(told.errors.contains("No space left on device")) << told.errors.constData();
        EXPECT_FALSE(told.errors.contains("SECRET") || told.errors.contains("OLD"));
    }
    EXPECT_EQ(contentOf(folder + u"/keys.json"_s), "{\"grok\":\"OLD\"}");
}

TEST_F(CommandsTest, aKeyThatTheServiceQuotesIsShownToNobody)
{
    const QByteArray key = "sk-1234567890abcdef";
    for (const QString &provider : {u"gemini"_s, u"grok"_s}) {
        ASSERT_EQ(run({u"key"_s, u"set"_s, provider}, key).status, 0);
        ASSERT_EQ(run({u"settings"_s, u"providerOverride"_s, provider}).status, 0);
        Misbehaviour quoting(Misbehaviour::Kind::ErrorObject);
        quoting.text = "the key " + key + " is not known";
        service.setMisbehaviour(quoting);
        for (const QStringList &more : {QStringList(), QStringList(u"--json"_s)}) {
            const CommandRun failed = run(QStringList{u"generate"_s, u"--prompt"_s, u"a lake"_s} + more);
            EXPECT_EQ(failed.status, 1);
            EXPECT_TRUE((failed.output + failed.errors).contains("the key … is not known"))
                << failed.errors.constData();
            EXPECT_FALSE((failed.output + failed.errors).contains(key));
        }
    }
}

} // namespace quorvane
