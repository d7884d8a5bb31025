#include "Manager/SettingsKeys.h"
#include "Support/SmallDisk.h"
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

TEST_F(SettingsView, aKeyThatCannotBeStoredSaysSoAndStaysInItsField)
{
    EXPECT_TRUE(Keychain::save(u"OLD"_s, u"gemini"_s));
    openSettings();
    click(u"geminiField"_s);
    type(u"NEW"_s);
    const QString typed = label("geminiField");
    {
        const FileSizeLimit full(1);
        click(u"geminiSave"_s);
    }
    EXPECT_TRUE(waitFor([&] { return isSeen(u"geminiProblem"_s); }));
    EXPECT_NE(label("geminiProblem"), QString());
    EXPECT_TRUE(isSeen(u"geminiUnsaved"_s));
    EXPECT_EQ(label("geminiField"), typed);
    EXPECT_EQ(Keychain::load(u"gemini"_s), u"OLD"_s);
    click(u"geminiSave"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"geminiProblem"_s) && !isSeen(u"geminiUnsaved"_s); }));
    EXPECT_EQ(Keychain::load(u"gemini"_s), typed);
    {
        const FileSizeLimit full(1);
        click(u"geminiTrash"_s);
    }
    EXPECT_TRUE(waitFor([&] { return isSeen(u"geminiProblem"_s); }));
    EXPECT_EQ(label("geminiField"), typed);
    EXPECT_TRUE(isSeen(u"geminiSaved"_s));
}

TEST_F(SettingsView, returnStoresTheKeyAndLeavesTheRowAsItWas)
{
    openSettings();
    click(u"grokField"_s);
    type(u"KEY"_s);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_EQ(Keychain::load(u"grok"_s), u"KEY"_s);
    EXPECT_TRUE(isSeen(u"grokStored"_s));
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

TEST_F(SettingsView, aModelThatIsChosenElsewhereIsShownAtOnce)
{
    openSettings();
    click(u"advancedTab"_s);
    const ImageProvider &gemini = *manager->providers().front();
    ASSERT_GT(gemini.models().size(), 1U);
    EXPECT_EQ(find(u"geminiModelRow"_s)->property("chosen"), 0);
    manager->setSelectedModel(u"gemini"_s, gemini.models()[1].id);
    EXPECT_EQ(find(u"geminiModelRow"_s)->property("chosen"), 1);
    EXPECT_EQ(find(u"geminiModelRow"_s)->property("picker").value<QQuickItem *>()->property("currentIndex"), 1);
}

TEST_F(SettingsView, aKeyThatIsDeletedOrStoredElsewhereIsShownAtOnce)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
    openSettings();
    EXPECT_TRUE(isSeen(u"geminiSaved"_s));
    (void)manager->removeKey(u"gemini"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"geminiSaved"_s); }));
    EXPECT_EQ(label("geminiField"), QString());
    EXPECT_EQ(label("geminiSave"), u"Save"_s);
    (void)manager->saveKey(u"OTHER"_s, u"gemini"_s);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"geminiSaved"_s); }));
    EXPECT_EQ(label("geminiField"), u"OTHER"_s);
    EXPECT_FALSE(isSeen(u"geminiUnsaved"_s));
}

TEST_F(SettingsView, anEditedKeyThatIsNotSavedSaysSoAndOutlastsTheTab)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
    openSettings();
    EXPECT_FALSE(isSeen(u"geminiUnsaved"_s));
    EXPECT_FALSE(isSeen(u"grokUnsaved"_s));
    click(u"geminiField"_s);
    QTest::keyClick(window, Qt::Key_End);
    type(u"2"_s);
    EXPECT_TRUE(isSeen(u"geminiUnsaved"_s));
    click(u"grokField"_s);
    type(u"NEW"_s);
    EXPECT_TRUE(isSeen(u"grokUnsaved"_s));
    click(u"advancedTab"_s);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"geminiModelRow"_s); }));
    click(u"apiKeysTab"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"geminiField"_s); }));
    EXPECT_EQ(label("geminiField"), u"KEY2"_s);
    EXPECT_EQ(label("grokField"), u"NEW"_s);
    EXPECT_TRUE(isSeen(u"geminiUnsaved"_s));
    // What others do to the stored key leaves it alone, too.
    (void)manager->removeKey(u"gemini"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"geminiSaved"_s); }));
    EXPECT_EQ(label("geminiField"), u"KEY2"_s);
    click(u"geminiSave"_s);
    EXPECT_FALSE(isSeen(u"geminiUnsaved"_s));
    EXPECT_EQ(Keychain::load(u"gemini"_s), u"KEY2"_s);
}

TEST_F(SettingsView, escapeAndControlWCloseTheWindow)
{
    start();
    for (const auto &[key, modifiers] : {std::pair{Qt::Key_Escape, Qt::NoModifier}, {Qt::Key_W, Qt::ControlModifier}}) {
        for (const bool isInAField : {false, true}) {
            ASSERT_NE(open(u"SettingsWindow"_s), nullptr);
            if (isInAField) {
                click(u"geminiField"_s);
            }
            QTest::keyClick(window, key, modifiers);
            EXPECT_FALSE(window->isVisible()) << key << isInAField;
        }
    }
}

TEST_F(SettingsView, escapeClosesAnOpenListBeforeTheWindow)
{
    openSettings();
    click(u"advancedTab"_s);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"providerRow"_s); }));
    auto *picker = find(u"providerRow"_s)->property("picker").value<QQuickItem *>();
    picker->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Space);
    ASSERT_TRUE(picker->property("down").toBool());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !picker->property("down").toBool(); }));
    EXPECT_TRUE(window->isVisible());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(SettingsView, theKeyboardReachesAndPressesEverything)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
    openSettings();
    // The keyboard is there from the beginning.
    EXPECT_TRUE(find(u"apiKeysTab"_s)->hasActiveFocus());
    EXPECT_EQ(tabStops(), (QStringList{u"advancedTab"_s, u"geminiField"_s, u"geminiSave"_s, u"geminiTrash"_s,
                                       u"grokField"_s, u"openaiField"_s, u"apiKeysTab"_s}));
    find(u"advancedTab"_s)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"geminiModelRow"_s); }));
    find(u"apiKeysTab"_s)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Enter);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"geminiTrash"_s); }));
    find(u"geminiTrash"_s)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_EQ(Keychain::load(u"gemini"_s), std::nullopt);
}

TEST_F(SettingsView, afterTheTrashTheKeyboardIsAtTheFieldOfTheSameService)
{
    EXPECT_TRUE(Keychain::save(u"GEM"_s, u"gemini"_s));
    EXPECT_TRUE(Keychain::save(u"XAI"_s, u"grok"_s));
    openSettings();
    find(u"geminiTrash"_s)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"geminiTrash"_s) && find(u"geminiField"_s)->hasActiveFocus(); }));
    type(u"NEW"_s);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_EQ(Keychain::load(u"gemini"_s), u"NEW"_s);
    EXPECT_EQ(Keychain::load(u"grok"_s), u"XAI"_s);
}

TEST_F(SettingsView, aPickerThatGoesGivesTheKeyboardAway)
{
    store(SettingsKeys::kProviderOverride, u"grok"_s);
    store(SettingsKeys::kUpscaleMethod, u"gemini"_s);
    openSettings();
    click(u"advancedTab"_s);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"upscaleMethodRow"_s); }));
    auto *picker = find(u"upscaleMethodRow"_s)->property("picker").value<QQuickItem *>();
    picker->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Space);
    ASSERT_TRUE(picker->property("down").toBool());
    manager->setProviderOverride(u"gemini"_s);
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"upscaleMethodRow"_s); }));
    EXPECT_TRUE(waitFor([&] { return find(u"advancedTab"_s)->hasActiveFocus(); }));
    EXPECT_TRUE(find(u"advancedTab"_s)->property("visualFocus").toBool()) << "and it is seen where";
    EXPECT_FALSE(picker->property("down").toBool());
    QTest::keyClick(window, Qt::Key_Down);
    EXPECT_EQ(manager->upscaleMethod(), UpscaleMethod::Gemini);
}

TEST_F(SettingsView, aStoredModelThatIsNoLongerOfferedShowsAsTheFirst)
{
    store(u"selectedModel_openai"_s, u"gone"_s);
    openSettings();
    click(u"advancedTab"_s);
    EXPECT_EQ(find(u"openaiModelRow"_s)->property("chosen"), 0);
}

} // namespace quorvane
