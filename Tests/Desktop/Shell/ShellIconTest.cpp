#include "ShellMenuFixture.h"

#include "Support/WaitFor.h"

#include <QDBusArgument>

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
