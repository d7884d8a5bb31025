// The main window and the settings on an X server, read and used by who sees nothing, and by pointer and keyboard.

#include "WindowFixture.h"

#include "Storage/Keychain.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(X11WindowTest, aStoredKeyIsToldToNobody)
{
    EXPECT_TRUE(Keychain::save(u"SECRET-KEY"_s, u"gemini"_s));
    start(server->clientEnvironment(), "xcb");
    openSettings();
    EXPECT_TRUE(comes(u"text"_s, u"OpenAI API Key"_s));
    EXPECT_TRUE(comes(kButton, u"Update"_s));
    for (const AccessibleElement &each : tree->elements()) {
        EXPECT_FALSE((each.name + each.text + each.description).contains("SECRET-KEY"_L1)) << each.role.toStdString();
    }
}

TEST_F(X11WindowTest, thePointerAndTheKeyboardReachTheControls)
{
    start(server->clientEnvironment(), "xcb");
    click(u"text"_s, u"Prompt"_s);
    act({u"type"_s, u"a quiet hill"_s});
    EXPECT_TRUE(waitFor([&] {
        const auto prompt = tree->find(u"text"_s, u"Prompt"_s);
        return prompt && prompt->text == "a quiet hill"_L1;
    }));
    click(u"check box"_s, u"4K resolution"_s);
    EXPECT_TRUE(waitFor([&] {
        const auto toggle = tree->find(u"check box"_s, u"4K resolution"_s);
        return toggle && toggle->has(AccessibleElement::Checked);
    }));
    click(kButton, u"a lake, 1 picture"_s);
    EXPECT_TRUE(comes(kButton, u"Use Prompt"_s));
    act({u"key"_s, u"Escape"_s});
    EXPECT_TRUE(comes(kButton, u"a lake, 1 picture"_s));
}

TEST_F(X11WindowTest, aDisabledButtonSaysSoAndIsNotPressed)
{
    start(server->clientEnvironment(), "xcb");
    openSettings();
    EXPECT_FALSE(isEnabled(u"Save"_s));
    EXPECT_FALSE(isEnabled(u"Generate & Set Wallpaper"_s));
    (void)tree->press(*tree->find(kButton, u"Save"_s));
    EXPECT_TRUE(session.keyFile().isNull());
    click(u"text"_s, u"Gemini API Key"_s);
    act({u"type"_s, u"a-key"_s});
    EXPECT_TRUE(waitFor([&] { return isEnabled(u"Save"_s); }));
    press("push button", "Save");
    EXPECT_TRUE(comes(kButton, u"Update"_s));
    EXPECT_TRUE(session.keyFile().contains("a-key"));
}

TEST_F(X11WindowTest, aKeyThatIsTypedIsToldToNobodyEither)
{
    start(server->clientEnvironment(), "xcb");
    OwnedProgram monitor(u"dbus-monitor"_s,
                         {u"--address"_s, tree->addressOfEvents(), u"interface='org.a11y.atspi.Event.Object'"_s},
                         session.environment(), session.home().path());
    const auto saidUntil = [&](const char *last) {
        QByteArray said;
        for (QByteArray line = monitor.readLine(); !line.isEmpty(); line = monitor.readLine()) {
            said += line + '\n';
            if (line.contains(last)) {
                return said;
            }
        }
        ADD_FAILURE() << "nobody said " << last << ": " << said.constData();
        return said;
    };
    act({u"key"_s, u"Tab"_s});
    (void)saidUntil("string \"focused\"");
    openSettings();
    click(u"text"_s, u"Gemini API Key"_s);
    act({u"type"_s, u"ZZZZ"_s});
    ASSERT_TRUE(waitFor([&] { return isEnabled(u"Save"_s); }));
    for (const AccessibleElement &each : tree->elements()) {
        EXPECT_FALSE((each.name + each.text + each.description).contains("ZZ"_L1)) << each.role.toStdString();
    }
    press("check box", "4K resolution");
    EXPECT_FALSE(saidUntil("string \"checked\"").contains('Z'));
}

} // namespace quorvane
