// The menu as a panel sees it: read and clicked over the bus.

#include "ShellFixture.h"

#include "Support/WaitFor.h"

#include <QDBusArgument>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kLabel = u"label"_s;
const QString kEnabled = u"enabled"_s;
const QString kToggle = u"toggle-state"_s;
const QString kStatus = u"Status"_s;

} // namespace

using ShellMenuTest = ShellTest;

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

TEST_F(ShellMenuTest, theIconComesWithAPanelThatComesLaterAndAgainWhenThatWasRestarted)
{
    const auto application = startAndWait();
    {
        const Panel late(session.connection());
        EXPECT_TRUE(waitFor([&late] { return !late.items.isEmpty(); }));
    }
    const Panel restarted(session.connection());
    EXPECT_TRUE(waitFor([&restarted] { return restarted.items.size() == 1; }));
    // What a panel reads of it.
    const QDBusMessage reply = call(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s,
                                    {u"org.kde.StatusNotifierItem"_s});
    const auto properties = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    EXPECT_EQ(properties.value(u"Id"_s).toString(), u"app.quorvane.Quorvane"_s);
    EXPECT_EQ(properties.value(u"Menu"_s).value<QDBusObjectPath>().path(), DBusMenu::path());
    const auto pixmaps = properties.value(u"IconPixmap"_s).value<QDBusArgument>();
    EXPECT_EQ(pixmaps.currentSignature(), u"a(iiay)"_s);
}

TEST_F(ShellMenuTest, theToolTipIsTheStateLineAndTheLastStatus)
{
    const auto application = startAndWait();
    const auto toolTip = [this] {
        const QDBusMessage reply = call(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                                        {u"org.kde.StatusNotifierItem"_s, u"ToolTip"_s});
        const auto argument = reply.arguments().value(0).value<QDBusVariant>().variant().value<QDBusArgument>();
        EXPECT_EQ(argument.currentSignature(), u"(sa(iiay)ss)"_s);
        QString icon;
        QString title;
        QString text;
        argument.beginStructure();
        argument >> icon;
        argument.beginArray();
        argument.endArray();
        argument >> title >> text;
        argument.endStructure();
        return title + '|'_L1 + text;
    };
    EXPECT_EQ(toolTip(), u"Quorvane|Idle"_s);
    EXPECT_EQ(command({u"generate"_s}).status, 1);
    const QString status = property(kStatus).toString();
    EXPECT_TRUE(status.startsWith(u"Missing Gemini API key"_s)) << status.toStdString();
    EXPECT_EQ(toolTip(), u"Quorvane|Idle\n"_s + status);
    click(MenuItem::AutoGenerate);
    EXPECT_EQ(toolTip(), u"Quorvane|"_s + menuProperty(MenuItem::StateLine, kLabel).toString() + '\n'_L1 + status);
}

TEST_F(ShellMenuTest, everythingComesBackWithARestartedBus)
{
    const auto application = startAndWait();
    session.stopBus();
    ASSERT_TRUE(session.startBus());
    ASSERT_TRUE(waitFor([this] { return isOnBus(); }));
    const Panel panel(session.connection());
    EXPECT_TRUE(waitFor([&panel] { return panel.items.size() == 1; }));
    EXPECT_EQ(menu().size(), 9);
    click(MenuItem::Quit);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

TEST_F(ShellMenuTest, aWindowThatCannotBeMadeIsToldAndTheProgramStays)
{
    session.environment().insert(u"TEST_WINDOWS"_s, u"/nonexistent"_s);
    const auto application = startAndWait({});
    EXPECT_TRUE(application->says("MainWindow.qml cannot be opened: "));
    EXPECT_EQ(menu().size(), 9);
    EXPECT_TRUE(application->isRunning());
}

TEST_F(ShellMenuTest, theWindowKnowsWhetherAPanelShowsTheIcon)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    ASSERT_TRUE(application->says("tray missing"));
    {
        const Panel panel(session.connection());
        ASSERT_TRUE(application->says("tray shown"));
    }
    ASSERT_TRUE(application->says("tray missing", 2));
}

TEST_F(ShellMenuTest, aWindowCanEndTheProgram)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    application->tell("Ctrl+Shift+X");
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
