#include "App/Application/Scenes.h"
#include "UI/ViewFixture.h"
#include "Views/Views.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class ScenesTest : public ViewTest
{
  protected:
    ScenesTest() { s_next = qInstallMessageHandler(&ScenesTest::pass); }
    ~ScenesTest() override { qInstallMessageHandler(s_next); }

    [[nodiscard]] static QQuickWindow *windowNamed(const QString &name)
    {
        const QWindowList all = QGuiApplication::topLevelWindows();
        for (QWindow *each : all) {
            if (each->objectName() == name && each->isVisible()) {
                return qobject_cast<QQuickWindow *>(each);
            }
        }
        return nullptr;
    }
    [[nodiscard]] static SceneUrls urls()
    {
        SceneUrls urls;
        urls.install = &installViews;
        return urls;
    }

  private:
    /// The offscreen platform has no order of windows and says so; everything else still counts.
    static void pass(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        if (message != "This plugin does not support raise()"_L1) {
            s_next(type, context, message);
        }
    }

    static inline QtMessageHandler s_next = nullptr;
};

TEST_F(ScenesTest, theSettingsOpenOverTheMainWindowAndOutlastIt)
{
    start();
    Scenes scenes(*manager, urls());
    scenes.openMain();
    QQuickWindow *main = windowNamed(u"mainWindow"_s);
    ASSERT_NE(main, nullptr);
    main->setPosition(120, 60);
    scenes.openSettings();
    QQuickWindow *settings = windowNamed(u"settingsWindow"_s);
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->transientParent(), main);
    EXPECT_EQ(settings->geometry().center(), main->geometry().center());
    main->close();
    EXPECT_TRUE(waitFor([&] { return windowNamed(u"mainWindow"_s) == nullptr; }));
    // What was closed goes a moment after it was hidden.
    EXPECT_TRUE(waitFor([&] { return settings->transientParent() == nullptr; }));
    EXPECT_EQ(windowNamed(u"settingsWindow"_s), settings);
    settings->close();
    EXPECT_TRUE(waitFor([&] { return !scenes.isAnyVisible(); }));
}

TEST_F(ScenesTest, theSettingsOpenAlone)
{
    start();
    Scenes scenes(*manager, urls());
    scenes.openSettings();
    QQuickWindow *settings = windowNamed(u"settingsWindow"_s);
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->transientParent(), nullptr);
    settings->close();
    EXPECT_TRUE(waitFor([&] { return !scenes.isAnyVisible(); }));
}

} // namespace quorvane
