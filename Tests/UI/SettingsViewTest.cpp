#include "UI/ViewFixture.h"

#include <QAccessible>

namespace quorvane {

class SettingsView : public ViewTest
{
  protected:
    void openSettings()
    {
        start();
        ASSERT_NE(open(QStringLiteral("SettingsWindow")), nullptr);
    }
    [[nodiscard]] QString label(const char *button) const { return textOf(find(QLatin1String(button))); }
};

TEST_F(SettingsView, withoutKeysTheFieldsAreEmptyAndNothingCanBeSaved)
{
    openSettings();
    EXPECT_EQ(window->size(), QSize(500, 440));
    for (const char *id : {"gemini", "grok", "openai"}) {
        EXPECT_EQ(label((QByteArray(id) + "Field").constData()), QString());
        EXPECT_FALSE(find(QLatin1String(id) + QStringLiteral("Save"))->isEnabled());
        EXPECT_FALSE(isSeen(QLatin1String(id) + QStringLiteral("Trash")));
    }
}

TEST_F(SettingsView, aKeyIsSavedUpdatedAndRemovedWithoutTouchingTheOthers)
{
    Keychain::save(QStringLiteral("OTHER"), QStringLiteral("openai"));
    openSettings();
    click(QStringLiteral("geminiField"));
    type(QStringLiteral("KEY"));
    EXPECT_EQ(label("geminiSave"), QStringLiteral("Save"));
    EXPECT_FALSE(isSeen(QStringLiteral("geminiSaved")));
    click(QStringLiteral("geminiSave"));
    EXPECT_TRUE(isSeen(QStringLiteral("geminiSaved")));
    EXPECT_EQ(label("geminiSaved"), QStringLiteral("Saved in Keychain"));
    EXPECT_EQ(Keychain::load(QStringLiteral("gemini")), QStringLiteral("KEY"));
    EXPECT_EQ(label("geminiSave"), QStringLiteral("Update"));
    click(QStringLiteral("geminiTrash"));
    EXPECT_EQ(Keychain::load(QStringLiteral("gemini")), std::nullopt);
    EXPECT_EQ(Keychain::load(QStringLiteral("openai")), QStringLiteral("OTHER"));
    EXPECT_EQ(label("geminiField"), QString());
    EXPECT_EQ(label("geminiSave"), QStringLiteral("Save"));
    EXPECT_FALSE(isSeen(QStringLiteral("geminiSaved")));
    EXPECT_FALSE(isSeen(QStringLiteral("geminiTrash")));
    EXPECT_FALSE(find(QStringLiteral("geminiSave"))->isEnabled());
}

TEST_F(SettingsView, returnStoresTheKeyAndLeavesTheRowAsItWas)
{
    openSettings();
    click(QStringLiteral("grokField"));
    type(QStringLiteral("KEY"));
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_EQ(Keychain::load(QStringLiteral("grok")), QStringLiteral("KEY"));
    EXPECT_EQ(label("grokSave"), QStringLiteral("Save"));
    EXPECT_FALSE(isSeen(QStringLiteral("grokTrash")));
}

TEST_F(SettingsView, aKeyIsNeitherShownNorToldToAssistiveTechnology)
{
    Keychain::save(QStringLiteral("SECRET"), QStringLiteral("gemini"));
    openSettings();
    QQuickItem *field = find(QStringLiteral("geminiField"));
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("SECRET"));
    EXPECT_FALSE(field->property("displayText").toString().contains(QLatin1String("SECRET")));
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(field);
    ASSERT_NE(told, nullptr);
    EXPECT_TRUE(told->state().passwordEdit);
    for (const auto part : {QAccessible::Name, QAccessible::Value, QAccessible::Description}) {
        EXPECT_FALSE(told->text(part).contains(QLatin1String("SECRET"))) << int(part);
    }
    if (auto *text = told->textInterface()) {
        EXPECT_FALSE(text->text(0, text->characterCount()).contains(QLatin1String("SECRET")));
    }
}

TEST_F(SettingsView, theUpscaleMethodGivesWayToANoteWhereTheServiceMakes4KItself)
{
    openSettings();
    click(QStringLiteral("advancedTab"));
    EXPECT_TRUE(isSeen(QStringLiteral("nativeNote")));
    EXPECT_EQ(textOf(find(QStringLiteral("nativeNote"))),
              QStringLiteral("Gemini produces 4K natively — no upscaling needed."));
    EXPECT_FALSE(isSeen(QStringLiteral("upscaleMethodRow")));
    manager->setProviderOverride(QStringLiteral("grok"));
    EXPECT_FALSE(isSeen(QStringLiteral("nativeNote")));
    EXPECT_TRUE(isSeen(QStringLiteral("upscaleMethodRow")));
}

TEST_F(SettingsView, aStoredModelThatIsNoLongerOfferedShowsAsTheFirst)
{
    store(QStringLiteral("selectedModel_openai"), QStringLiteral("gone"));
    openSettings();
    click(QStringLiteral("advancedTab"));
    EXPECT_EQ(find(QStringLiteral("openaiModelRow"))->property("chosen"), 0);
}

} // namespace quorvane
