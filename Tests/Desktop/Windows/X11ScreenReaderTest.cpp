#include "WindowFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(X11WindowTest, aScreenReaderFindsTheControlsByRoleNameAndState)
{
    start(server->clientEnvironment(), "xcb");
    for (const auto &[role, name] : {std::pair{"text", "Prompt"},
                                     {"check box", "4K resolution"},
                                     {"check box", "NSFW"},
                                     {"check box", "Auto-generate"},
                                     {"label", "Missing Gemini API key"},
                                     {"label", "Open Settings (⌘,)"},
                                     {"label", "Gemini"},
                                     {"push button", "a lake, 1 picture"}}) {
        EXPECT_TRUE(comes(QLatin1String(role), QString::fromUtf8(name))) << role << ' ' << name;
    }
    const auto prompt = tree->find(u"text"_s, u"Prompt"_s);
    ASSERT_TRUE(prompt.has_value());
    EXPECT_TRUE(prompt->has(AccessibleElement::Focusable) && prompt->has(AccessibleElement::Editable));
    // Whatever can be used now has a name.
    for (const AccessibleElement &each : tree->elements()) {
        const bool isControl = each.role == kButton || each.role == "check box"_L1 || each.role == "text"_L1 ||
                               each.role == "combo box"_L1;
        EXPECT_FALSE(isControl && each.has(AccessibleElement::Showing) && each.name.isEmpty())
            << each.role.toStdString() << ' ' << each.text.toStdString() << ' ' << each.description.toStdString();
    }
}

TEST_F(X11WindowTest, aScreenReaderPressesTheControls)
{
    start(server->clientEnvironment(), "xcb");
    const auto isChecked = [&](const char *name) {
        const auto toggle = tree->find(u"check box"_s, QLatin1String(name));
        return toggle && toggle->has(AccessibleElement::Checked);
    };
    for (const char *name : {"4K resolution", "Auto-generate"}) {
        ASSERT_FALSE(isChecked(name)) << name;
        EXPECT_TRUE(tree->press(*tree->find(u"check box"_s, QLatin1String(name))));
        EXPECT_TRUE(waitFor([&] { return isChecked(name); })) << name;
    }
    openPreview();
    press([](const QString &name) { return name == "Unfavorite"_L1 || name == "Favorite"_L1; });
    press([](const QString &name) { return name == "Close"_L1; });
    EXPECT_TRUE(waitFor([&] { return !tree->find(kButton, u"Close"_s); }));
    press([](const QString &name) { return name == "Albums"_L1; });
    press([](const QString &name) { return name.startsWith("Favorites, 1"_L1); });
    press([](const QString &name) { return name == "Menu"_L1; });
    EXPECT_TRUE(comes(u"menu item"_s, u"Settings..."_s));
}

TEST_F(X11WindowTest, aScreenReaderPressesMenuLinesTabsAndPickers)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "Menu");
    press("menu item", "Settings...");
    EXPECT_TRUE(comes(u"text"_s, u"Gemini API Key"_s));
    EXPECT_TRUE(waitFor([&] { return !tree->find(u"menu item"_s, u"Settings..."_s); }));
    press("page tab", "Advanced");
    EXPECT_TRUE(waitFor([&] { return !tree->find(u"text"_s, u"Gemini API Key"_s); }));
    EXPECT_TRUE(isChosen("Provider", "Auto"));
    press("combo box", "Provider");
    press("list item", "OpenAI");
    EXPECT_TRUE(isChosen("Provider", "OpenAI"));
    press("page tab", "API Keys");
    EXPECT_TRUE(comes(u"text"_s, u"Gemini API Key"_s));

    press("check box", "Auto-generate");
    press("combo box", "Every");
    press("list item", "2 hours");
    EXPECT_TRUE(isChosen("Every", "2 hours"));
    press("push button", "Menu");
    press("menu item", "Auto-Generate");
    EXPECT_TRUE(waitFor([&] { return !tree->find(u"combo box"_s, u"Every"_s); }));
}

TEST_F(X11WindowTest, whatLiesUnderThePreviewIsNotReadOutAndNotPressed)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "a lake, 1 picture");
    const auto tile =
        button([](const QString &name) { return name.startsWith("a lake, "_L1) && name != "a lake, 1 picture"_L1; });
    ASSERT_TRUE(tile && tree->press(*tile));
    EXPECT_TRUE(comes(kButton, u"Close"_s));
    const auto count = [&](const QString &name) {
        const QList<AccessibleElement> all = tree->elements();
        return std::count_if(all.begin(), all.end(), [&](const AccessibleElement &each) {
            return each.name == name && each.role == kButton && each.has(AccessibleElement::Showing);
        });
    };
    EXPECT_TRUE(waitFor([&] { return count(u"Use Prompt"_s) == 1; }));
    EXPECT_EQ(count(u"Albums"_s), 0);
    EXPECT_EQ(count(tile->name), 0);
    // A reader that still knows them gets nothing done by pressing.
    press("push button", "Favorite");
    EXPECT_TRUE(comes(kButton, u"Unfavorite"_s));
    // And back, for a favorite's tile has another name.
    press("push button", "Unfavorite");
    EXPECT_TRUE(comes(kButton, u"Favorite"_s));
    press("push button", "Close");
    EXPECT_TRUE(waitFor([&] { return count(tile->name) == 1 && count(u"Use Prompt"_s) == 1; }));
    EXPECT_EQ(count(u"Albums"_s), 1);
}

} // namespace quorvane
