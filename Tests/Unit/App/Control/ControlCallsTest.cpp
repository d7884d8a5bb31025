#include "App/Control/ControlCalls.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

CommandLine lineOf(const QStringList &arguments)
{
    const auto parsed = parseCommandLine(arguments);
    EXPECT_TRUE(std::holds_alternative<CommandLine>(parsed)) << arguments.join(QLatin1Char(' ')).toStdString();
    return std::get<CommandLine>(parsed);
}

} // namespace

TEST(ControlCalls, everyForwardedCommandComesOutAsItWentIn)
{
    const QList<QStringList> commands{
        {QStringLiteral("generate")},
        {QStringLiteral("generate"), QStringLiteral("--prompt"), QStringLiteral("--a \"lake\", 水\n")},
        {QStringLiteral("generate"), QStringLiteral("--prompt=")},
        {QStringLiteral("upscale"), QStringLiteral("/a b.png")},
        {QStringLiteral("set"), QStringLiteral("--"), QStringLiteral("-a.png")},
        {QStringLiteral("favorite"), QStringLiteral("/a.png")},
        {QStringLiteral("delete"), QStringLiteral("/a.png")},
        {QStringLiteral("auto"), QStringLiteral("on")},
        {QStringLiteral("auto"), QStringLiteral("off")},
        {QStringLiteral("settings")},
        {QStringLiteral("settings"), QStringLiteral("lastPrompt")},
        {QStringLiteral("settings"), QStringLiteral("lastPrompt"), QStringLiteral("--json")},
        {QStringLiteral("settings"), QStringLiteral("lastPrompt"), QStringLiteral("-x --json")},
        {QStringLiteral("settings"), QStringLiteral("lastPrompt"), QString()},
        {QStringLiteral("settings"), QStringLiteral("--unset"), QStringLiteral("lastPrompt")},
        {QStringLiteral("key"), QStringLiteral("list")},
        {QStringLiteral("key"), QStringLiteral("delete"), QStringLiteral("grok")},
        {QStringLiteral("status")},
        {QStringLiteral("quit")},
    };
    for (const QStringList &command : commands) {
        CommandLine line = lineOf(command);
        const auto call = Control::callFor(line);
        ASSERT_TRUE(call) << command.join(QLatin1Char(' ')).toStdString();
        const auto back = Control::lineFrom(*call);
        ASSERT_TRUE(back) << call->method.toStdString();
        EXPECT_EQ(back->verb, line.verb);
        EXPECT_EQ(back->arguments, line.arguments);
        EXPECT_EQ(back->prompt, line.prompt);
        EXPECT_EQ(back->unset, line.unset);
    }
}

TEST(ControlCalls, aKeyTravelsAsAnArgumentOfItsOwn)
{
    CommandLine line = lineOf({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("openai")});
    line.secret = QStringLiteral("--secret");
    const auto call = Control::callFor(line);
    ASSERT_TRUE(call);
    EXPECT_EQ(*call, (Control::Call{QStringLiteral("SetKey"), {QStringLiteral("openai"), QStringLiteral("--secret")}}));
    const auto back = Control::lineFrom(*call);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->secret, line.secret);
    EXPECT_EQ(back->arguments, line.arguments);
}

TEST(ControlCalls, whatEveryProcessDoesByItselfIsNoCall)
{
    for (const char *word : {"history", "albums", "model"}) {
        EXPECT_FALSE(Control::callFor(lineOf({QLatin1String(word)}))) << word;
    }
    EXPECT_FALSE(Control::callFor(lineOf({QStringLiteral("autostart"), QStringLiteral("on")})));
    EXPECT_FALSE(Control::callFor(lineOf({})));
}

TEST(ControlCalls, otherProgramsCanCallThatToo)
{
    const auto autostart = Control::lineFrom({QStringLiteral("Autostart"), {false}});
    ASSERT_TRUE(autostart);
    EXPECT_EQ(autostart->verb, CommandLine::Verb::Autostart);
    EXPECT_EQ(autostart->arguments, QStringList{QStringLiteral("off")});
    const auto model = Control::lineFrom({QStringLiteral("Model"), {}});
    ASSERT_TRUE(model);
    EXPECT_EQ(model->verb, CommandLine::Verb::Model);
    const auto install = Control::lineFrom({QStringLiteral("InstallModel"), {QStringLiteral("--a.onnx")}});
    ASSERT_TRUE(install);
    EXPECT_EQ(install->arguments, (QStringList{QStringLiteral("install"), QStringLiteral("--a.onnx")}));
}

TEST(ControlCalls, whatTheCommandLineWouldRefuseIsRefused)
{
    const QString text = QStringLiteral("x");
    const QList<Control::Call> calls{
        {QStringLiteral("Nothing"), {}},
        {QStringLiteral("Upscale"), {}},
        {QStringLiteral("Upscale"), {text, text}},
        {QStringLiteral("Upscale"), {1}},
        {QStringLiteral("Generate"), {}},
        {QStringLiteral("Generate"), {text}},
        {QStringLiteral("Generate"), {QVariantMap{{QStringLiteral("prompt"), 1}}}},
        {QStringLiteral("Auto"), {text}},
        {QStringLiteral("Autostart"), {text}},
        {QStringLiteral("InstallModel"), {}},
        {QStringLiteral("SetKey"), {text, text}},
        {QStringLiteral("SetKey"), {QStringLiteral("gemini")}},
        {QStringLiteral("DeleteKey"), {text}},
        {QStringLiteral("Quit"), {text}},
    };
    for (const Control::Call &call : calls) {
        EXPECT_FALSE(Control::lineFrom(call)) << call.method.toStdString();
    }
}

} // namespace quorvane
