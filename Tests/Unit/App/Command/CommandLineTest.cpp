#include "App/Command/CommandLine.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Verb = CommandLine::Verb;

std::optional<CommandLine> parsed(const char *words)
{
    const auto result = parseCommandLine(QString::fromUtf8(words).split(' '_L1, Qt::SkipEmptyParts));
    return result ? std::optional(*result) : std::nullopt;
}

} // namespace

TEST(CommandLine, everyCommandHasItsForm)
{
    struct Case
    {
        const char *words;
        Verb verb;
    };
    for (const Case &each : {Case{"", Verb::Start},
                             Case{"--hidden", Verb::Start},
                             Case{"--action toggle-auto", Verb::Start},
                             Case{"generate", Verb::Generate},
                             Case{"generate --prompt lake", Verb::Generate},
                             Case{"upscale a.png", Verb::Upscale},
                             Case{"set a.png", Verb::Set},
                             Case{"status", Verb::Status},
                             Case{"history", Verb::History},
                             Case{"albums", Verb::Albums},
                             Case{"favorite a.png", Verb::Favorite},
                             Case{"delete a.png", Verb::Delete},
                             Case{"settings", Verb::Settings},
                             Case{"settings k", Verb::Settings},
                             Case{"settings k v", Verb::Settings},
                             Case{"settings --unset k", Verb::Settings},
                             Case{"key list", Verb::Key},
                             Case{"key set grok", Verb::Key},
                             Case{"key delete openai", Verb::Key},
                             Case{"auto on", Verb::Auto},
                             Case{"autostart off", Verb::Autostart},
                             Case{"model", Verb::Model},
                             Case{"model install f", Verb::Model},
                             Case{"cancel", Verb::Cancel},
                             Case{"quit", Verb::Quit},
                             Case{"--help", Verb::Help},
                             Case{"set --help", Verb::Help},
                             Case{"--version", Verb::Version}}) {
        const auto line = parsed(each.words);
        ASSERT_TRUE(line) << each.words;
        EXPECT_EQ(line->verb, each.verb) << each.words;
    }
}

TEST(CommandLine, whatHasNoFormIsRefused)
{
    for (const char *words : {"paint",
                              "--loud",
                              "generate extra",
                              "generate --prompt",
                              "upscale",
                              "set a b",
                              "status now",
                              "favorite",
                              "delete",
                              "settings a b c",
                              "settings --unset",
                              "settings --unset a b",
                              "key",
                              "key list gemini",
                              "key set",
                              "key set nobody",
                              "key show grok",
                              "auto",
                              "auto maybe",
                              "autostart",
                              "model remove f",
                              "model install",
                              "quit now",
                              "generate --hidden",
                              "--hidden generate",
                              "--action",
                              "--action explode",
                              "--action settings generate",
                              "generate --action settings",
                              "status --prompt x",
                              "--prompt x"}) {
        EXPECT_FALSE(parsed(words)) << words;
    }
}

TEST(CommandLine, optionsStandBeforeOrBehindTheCommand)
{
    EXPECT_TRUE(parsed("--json status")->json);
    EXPECT_TRUE(parsed("status --json")->json);
    EXPECT_TRUE(parsed("--hidden")->hidden);
    EXPECT_EQ(parsed("--action quit")->action, u"quit"_s);
    EXPECT_EQ(parsed("generate --prompt=a")->prompt, u"a"_s);
    EXPECT_EQ(parsed("generate --prompt -a")->prompt, u"-a"_s);
    EXPECT_FALSE(parsed("generate")->prompt);
}

TEST(CommandLine, whatLooksLikeAnOptionCanBeAValueOrAFile)
{
    EXPECT_EQ(parsed("set -- -a.png")->arguments, QStringList{u"-a.png"_s});
    EXPECT_EQ(parsed("settings lastPrompt -dark-")->arguments.last(), u"-dark-"_s);
    EXPECT_EQ(parsed("settings --unset k")->arguments, QStringList{u"k"_s});
}

} // namespace quorvane
