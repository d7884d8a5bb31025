// The menu as a panel sees it: read and clicked over the bus.

#include "ShellMenuFixture.h"

#include "Support/WaitFor.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kEnabled = u"enabled"_s;
const QString kToggle = u"toggle-state"_s;

} // namespace

TEST_F(ShellMenuTest, hasItsItemsInTheirOrder)
{
    const auto application = startAndWait();
    QStringList labels;
    for (const DBusMenuLayout &each : menu()) {
        const bool isDivider = each.properties.value(u"type"_s) == u"separator"_s;
        labels.append(isDivider ? u"-"_s : each.properties.value(kLabel).toString());
    }
    EXPECT_EQ(labels.join('|'_L1).toStdString(), "Idle|-|Generate Now|Auto-Generate|-|Open Window|Settings...|-|Quit");
    EXPECT_FALSE(menuProperty(MenuItem::StateLine, kEnabled).toBool());
    EXPECT_FALSE(menuProperty(MenuItem::GenerateNow, kEnabled).toBool());
    EXPECT_TRUE(menuProperty(MenuItem::Quit, kEnabled).toBool());
    EXPECT_EQ(menuProperty(MenuItem::AutoGenerate, kToggle), QVariant(0));
}

TEST_F(ShellMenuTest, autoGenerateIsASwitchAndTheStateLineFollows)
{
    const auto application = startAndWait();
    click(MenuItem::AutoGenerate);
    EXPECT_TRUE(property(u"AutoEnabled"_s).toBool());
    EXPECT_EQ(menuProperty(MenuItem::AutoGenerate, kToggle), QVariant(1));
    EXPECT_TRUE(menuProperty(MenuItem::StateLine, kLabel).toString().startsWith(u"Next: "_s));
    EXPECT_FALSE(property(u"NextFireDate"_s).toString().isEmpty());
    click(MenuItem::AutoGenerate);
    EXPECT_EQ(menuProperty(MenuItem::StateLine, kLabel).toString(), u"Idle"_s);
}

TEST_F(ShellMenuTest, generateNowWorksOnceThereIsAPromptAndAKey)
{
    const auto application = startAndWait();
    click(MenuItem::GenerateNow); // Disabled: nothing happens.
    EXPECT_EQ(property(kStatus).toString(), QString());
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    EXPECT_FALSE(menuProperty(MenuItem::GenerateNow, kEnabled).toBool());
    ASSERT_EQ(command({u"settings"_s, u"lastPrompt"_s, u" "_s}).status, 0);
    EXPECT_TRUE(menuProperty(MenuItem::GenerateNow, kEnabled).toBool());
    click(MenuItem::GenerateNow);
    EXPECT_TRUE(waitFor(
        [this] { return property(kStatus).toString() == u"Wallpaper set!"_s && !property(u"IsLoading"_s).toBool(); }));
    EXPECT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(QFile::exists(property(u"CurrentWallpaper"_s).toString()));
    EXPECT_TRUE(menuProperty(MenuItem::GenerateNow, kEnabled).toBool());
    ASSERT_EQ(command({u"settings"_s, u"lastPrompt"_s, QString()}).status, 0);
    EXPECT_FALSE(menuProperty(MenuItem::GenerateNow, kEnabled).toBool());
}

TEST_F(ShellMenuTest, openWindowTwiceOpensOneAndTheQuitCommandOnlyClosesIt)
{
    const auto application = startAndWait();
    click(MenuItem::OpenWindow);
    ASSERT_TRUE(application->says("main opened with manager"));
    click(MenuItem::OpenWindow);
    click(MenuItem::Settings);
    ASSERT_TRUE(application->says("settings opened with manager"));
    EXPECT_EQ(application->count("main opened"), 1);
    application->tell("Ctrl+Q");
    ASSERT_TRUE(application->says("main closed") && application->says("settings closed"));
    EXPECT_TRUE(isOnBus());
    click(MenuItem::OpenWindow);
    ASSERT_TRUE(application->says("main opened with manager", 2));
    application->tell("Meta+,");
    ASSERT_TRUE(application->says("settings opened", 2));
    application->tell("Meta+Q");
    ASSERT_TRUE(application->says("main closed", 2) && application->says("settings closed", 2));
    EXPECT_TRUE(isOnBus());
    EXPECT_TRUE(application->isRunning());
}

TEST_F(ShellMenuTest, aWindowCanAskForTheSettings)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    application->tell("Ctrl+Shift+S");
    EXPECT_TRUE(application->says("settings opened"));
}

TEST_F(ShellMenuTest, quitEndsWhateverIsOpen)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    click(MenuItem::Settings);
    ASSERT_TRUE(application->says("settings opened"));
    click(MenuItem::Quit);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
    EXPECT_FALSE(isOnBus());
}

TEST_F(ShellMenuTest, aWindowThatCannotBeMadeIsToldAndTheProgramStays)
{
    session.environment().insert(u"TEST_WINDOWS"_s, u"/nonexistent"_s);
    const auto application = startAndWait({});
    EXPECT_TRUE(application->says("MainWindow.qml cannot be opened: "));
    EXPECT_EQ(menu().size(), 9);
    EXPECT_TRUE(application->isRunning());
}

TEST_F(ShellMenuTest, aWindowCanEndTheProgram)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    application->tell("Ctrl+Shift+X");
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
