#include "Manager/MenuItems.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QLocale kGerman(QLocale::German, QLocale::Germany);
const QLocale kAmerican(QLocale::English, QLocale::UnitedStates);
const QDateTime kAfternoon(QDate(2026, 1, 31), QTime(14, 5, 59));

QStringList texts(const QList<MenuItem> &items)
{
    QStringList result;
    for (const MenuItem &item : items) {
        result.append(item.text);
    }
    return result;
}

MenuItem item(const MenuState &state, MenuItem::Id id)
{
    const QList<MenuItem> items = menuItems(state, kGerman);
    return *std::find_if(items.begin(), items.end(), [id](const MenuItem &each) { return each.id == id; });
}

} // namespace

TEST(StateLine, tellsTheFirstThatHolds)
{
    EXPECT_EQ(stateLine({}, kGerman), u"Idle"_s);
    // Only the date counts: it is cleared when the schedule stops.
    EXPECT_EQ(stateLine({.autoEnabled = true}, kGerman), u"Idle"_s);
    EXPECT_EQ(stateLine({.nextFireDate = kAfternoon}, kGerman), u"Next: 14:05"_s);
    EXPECT_EQ(stateLine({.isLoading = true}, kGerman), u"Generating..."_s);
    EXPECT_EQ(stateLine({.isLoading = true, .nextFireDate = kAfternoon}, kGerman), u"Generating..."_s);
}

TEST(StateLine, showsTheTimeOfDayAsTheUsersCountryWritesIt)
{
    const QString line = stateLine({.nextFireDate = kAfternoon}, kAmerican);
    EXPECT_TRUE(line.startsWith(u"Next: 2:05"_s) && line.endsWith(u"PM"_s)) << line.toStdString();
    // A date that is kept in another zone is shown in the user's.
    EXPECT_EQ(stateLine({.nextFireDate = kAfternoon.toUTC()}, kGerman), u"Next: 14:05"_s);
}

TEST(MenuItems, standInTheirOrder)
{
    const QList<MenuItem> items = menuItems({}, kGerman);
    EXPECT_EQ(texts(items), (QStringList{u"Idle"_s, QString(), u"Generate Now"_s, u"Auto-Generate"_s, QString(),
                                         u"Open Window"_s, u"Settings..."_s, QString(), u"Quit"_s}));
    for (const MenuItem &each : items) {
        EXPECT_EQ(each.kind == MenuItem::Kind::Divider, each.text.isEmpty());
        EXPECT_EQ(each.kind == MenuItem::Kind::Toggle, each.id == MenuItem::AutoGenerate);
    }
    EXPECT_EQ(items.first().kind, MenuItem::Kind::Text);
    EXPECT_FALSE(items.first().isEnabled);
}

TEST(MenuItems, generateNowNeedsAPromptAndKeysAndThatNothingRuns)
{
    EXPECT_TRUE(item({.hasPrompt = true, .hasKeys = true}, MenuItem::GenerateNow).isEnabled);
    EXPECT_FALSE(item({.hasPrompt = false, .hasKeys = true}, MenuItem::GenerateNow).isEnabled);
    EXPECT_FALSE(item({.hasPrompt = true, .hasKeys = false}, MenuItem::GenerateNow).isEnabled);
    EXPECT_FALSE(item({.isLoading = true, .hasPrompt = true, .hasKeys = true}, MenuItem::GenerateNow).isEnabled);
}

TEST(MenuItems, everythingElseCanAlwaysBeChosen)
{
    for (const MenuState &state : {MenuState{}, MenuState{.isLoading = true}}) {
        for (const auto id : {MenuItem::AutoGenerate, MenuItem::OpenWindow, MenuItem::Settings, MenuItem::Quit}) {
            EXPECT_TRUE(item(state, id).isEnabled);
        }
    }
}

TEST(MenuItems, autoGenerateShowsTheSwitch)
{
    EXPECT_FALSE(item({}, MenuItem::AutoGenerate).isChecked);
    EXPECT_TRUE(item({.autoEnabled = true}, MenuItem::AutoGenerate).isChecked);
}

} // namespace quorvane
