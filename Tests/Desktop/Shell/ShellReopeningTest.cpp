// The window closes and opens again, after any pause: what a close leaves to do must not meet what an opening does.
//
// The real program with its real windows, on a headless sway and on an X server. QUORVANE_SOAK=full goes on for five
// hundred times.

#include "ShellFixture.h"

#include "App/Control/ControlCalls.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/WaitFor.h"

#include <functional>
#include <random>

using namespace Qt::StringLiterals;

namespace quorvane {

class ShellReopeningTest : public ShellTest
{
  protected:
    /// What the window system says and does.
    struct Windows
    {
        std::function<bool()> isOpen;
        std::function<void()> close;
    };

    void openAndClose(const QString &platform, const Windows &windows)
    {
        QProcessEnvironment &environment = session.environment();
        environment.insert(u"QT_QPA_PLATFORM"_s, platform);
        environment.remove(u"QT_QUICK_BACKEND"_s); // As the program itself chooses.
        const auto application = startAndWait();
        const auto comesTo = [&](bool isOpen) {
            return waitFor([&] { return !application->isRunning() || windows.isOpen() == isOpen; }) &&
                   application->isRunning();
        };
        std::mt19937 random(1); // The same pauses each time.
        std::uniform_int_distribution<int> milliseconds(0, 300);
        const auto pause = [&] {
            (void)waitFor([] { return false; }, std::chrono::milliseconds(milliseconds(random)));
        };
        const int times = qgetenv("QUORVANE_SOAK") == "full" ? 500 : 20;
        for (int each = 0; each < times; ++each) {
            (void)call(Control::objectPath(), Control::applicationInterface(), u"Activate"_s, {QVariantMap()});
            ASSERT_TRUE(comesTo(true)) << "opened " << each << " times: " << errorsOf(*application);
            pause();
            windows.close();
            ASSERT_TRUE(comesTo(false)) << "closed " << each << " times: " << errorsOf(*application);
            pause();
        }
        (void)call(Control::objectPath(), Control::interfaceName(), u"Quit"_s, {});
        EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
    }

  private:
    [[nodiscard]] static std::string errorsOf(Application &application)
    {
        (void)application.count({}); // Reads what there is.
        return application.errors().toStdString();
    }
};

TEST_F(ShellReopeningTest, theWindowComesBackAfterAnyPauseOnSway)
{
    const QString missing = PrivateSway::missingProgram();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    const PrivateSway sway({QSize(1280, 800)});
    ASSERT_TRUE(sway.isReady());
    session.environment().insert(u"WAYLAND_DISPLAY"_s, sway.runtimeFolder() + u"/wayland-1"_s);
    const auto say = [&sway](const QStringList &words) {
        return outputOf(u"swaymsg"_s, words, sway.clientEnvironment());
    };
    openAndClose(u"wayland"_s, {[&] {
                                    return say({u"-rt"_s, u"get_tree"_s}).contains("app.quorvane.Quorvane");
                                },
                                [&] { (void)say({u"[title=\".*\"] kill"_s}); }});
}

TEST_F(ShellReopeningTest, theWindowComesBackAfterAnyPauseOnX11)
{
    const QString missing = PrivateXServer::missingProgram();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    const PrivateXServer server(QSize(1280, 800));
    ASSERT_TRUE(server.isReady());
    session.environment().insert(u"DISPLAY"_s, QString::fromLatin1(server.display()));
    openAndClose(u"xcb"_s, {[&] { return !server.windows().isEmpty(); },
                            [&] {
                                for (const quint32 window : server.windows()) {
                                    server.askToClose(window);
                                }
                            }});
}

} // namespace quorvane
