#include "UI/ViewFixture.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace quorvane {

class SettingsView : public ViewTest
{
  protected:
    void openSettings()
    {
        start();
        ASSERT_NE(open(u"SettingsWindow"_s), nullptr);
    }
    [[nodiscard]] QString label(const char *button) const { return textOf(find(QLatin1String(button))); }
};

TEST_F(SettingsView, withoutKeysTheFieldsAreEmptyAndNothingCanBeSaved)
{
    openSettings();
    EXPECT_EQ(window->size(), QSize(500, 440));
    for (const char *id : {"gemini", "grok", "openai"}) {
        EXPECT_EQ(label((QByteArray(id) + "Field").constData()), QString());
        EXPECT_FALSE(find(QLatin1String(id) + u"Save"_s)->isEnabled());
        EXPECT_FALSE(isSeen(QLatin1String(id) + u"Trash"_s));
    }
}

TEST_F(SettingsView, aKeyIsSavedUpdatedAndRemovedWithoutTouchingTheOthers)
{
    EXPECT_TRUE(Keychain::save(u"OTHER"_s, u"openai"_s));
    openSettings();
    click(u"geminiField"_s);
    type(u"KEY"_s);
    EXPECT_EQ(label("geminiSave"), u"Save"_s);
    EXPECT_FALSE(isSeen(u"geminiSaved"_s));
    click(u"geminiSave"_s);
    EXPECT_TRUE(isSeen(u"geminiSaved"_s));
    EXPECT_EQ(label("geminiSaved"), u"Saved in Keychain"_s);
    EXPECT_EQ(Keychain::load(u"gemini"_s), u"KEY"_s);
    EXPECT_EQ(label("geminiSave"), u"Update"_s);
    click(u"geminiTrash"_s);
    EXPECT_EQ(Keychain::load(u"gemini"_s), std::nullopt);
    EXPECT_EQ(Keychain::load(u"openai"_s), u"OTHER"_s);
    EXPECT_EQ(label("geminiField"), QString());
    EXPECT_EQ(label("geminiSave"), u"Save"_s);
    EXPECT_FALSE(isSeen(u"geminiSaved"_s));
    EXPECT_FALSE(isSeen(u"geminiTrash"_s));
    EXPECT_FALSE(find(u"geminiSave"_s)->isEnabled());
}

TEST_F(SettingsView, returnStoresTheKeyAndLeavesTheRowAsItWas)
{
    openSettings();
    click(u"grokField"_s);
    type(u"KEY"_s);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_EQ(Keychain::load(u"grok"_s), u"KEY"_s);
    EXPECT_EQ(label("grokSave"), u"Save"_s);
    EXPECT_FALSE(isSeen(u"grokTrash"_s));
}

TEST_F(SettingsView, aKeyIsNeitherShownNorToldToAssistiveTechnology)
{
    EXPECT_TRUE(Keychain::save(u"SECRET"_s, u"gemini"_s));
    openSettings();
    QQuickItem *field = find(u"geminiField"_s);
    EXPECT_EQ(field->property("text").toString(), u"SECRET"_s);
    EXPECT_FALSE(field->property("displayText").toString().contains("SECRET"_L1));
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(field);
    ASSERT_NE(told, nullptr);
    EXPECT_TRUE(told->state().passwordEdit);
    for (const auto part : {QAccessible::Name, QAccessible::Value, QAccessible::Description}) {
        EXPECT_FALSE(told->text(part).contains("SECRET"_L1)) << int(part);
    }
    if (auto *text = told->textInterface()) {
        EXPECT_FALSE(text->text(0, text->characterCount()).contains("SECRET"_L1));
    }
}

TEST_F(SettingsView, theUpscaleMethodGivesWayToANoteWhereTheServiceMakes4KItself)
{
    openSettings();
    click(u"advancedTab"_s);
    EXPECT_TRUE(isSeen(u"nativeNote"_s));
    EXPECT_EQ(textOf(find(u"nativeNote"_s)), u"Gemini produces 4K natively — no upscaling needed."_s);
    EXPECT_FALSE(isSeen(u"upscaleMethodRow"_s));
    manager->setProviderOverride(u"grok"_s);
    EXPECT_FALSE(isSeen(u"nativeNote"_s));
    EXPECT_TRUE(isSeen(u"upscaleMethodRow"_s));
}

TEST_F(SettingsView, aStoredModelThatIsNoLongerOfferedShowsAsTheFirst)
{
    store(u"selectedModel_openai"_s, u"gone"_s);
    openSettings();
    click(u"advancedTab"_s);
    EXPECT_EQ(find(u"openaiModelRow"_s)->property("chosen"), 0);
}

} // namespace quorvane
