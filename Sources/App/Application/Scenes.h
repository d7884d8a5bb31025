#pragma once

#include "App/Application/AppDelegate.h"

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <memory>
#include <vector>

namespace quorvane {

using namespace Qt::StringLiterals;

class WallpaperManager;

/// Where the windows come from. Each is a Window with the required property "manager".
struct SceneUrls
{
    QUrl main{u"qrc:/qt/qml/Quorvane/Views/MainWindow.qml"_s};
    QUrl settings{u"qrc:/qt/qml/Quorvane/Views/SettingsWindow.qml"_s};
    std::function<void(QQmlEngine *)> install; ///< Called with each new engine, before the first window; may be empty.
};

/// The main window and the settings window. Each exists once at most, and nothing of either exists while both are
/// closed: the engine that makes them goes with the last one.
class Scenes : public QObject
{
    Q_OBJECT

  public:
    Scenes(WallpaperManager &manager, SceneUrls urls, QObject *parent = nullptr);
    ~Scenes() override;

    /// Makes the window, or brings the one that is open to the front. token lets a Wayland desktop give it the focus;
    /// it may be empty.
    void openMain(const QString &token = {});
    [[nodiscard]] bool isAnyVisible() const;

    /// Whether a panel shows the icon; told to the main window, where it has a property "trayShown".
    void setTrayShown(bool isShown);

    /// Every window of the process, in its window order.
    [[nodiscard]] static std::vector<ApplicationWindow> windows();

  public Q_SLOTS:
    /// Also what a window's own signal settingsRequested() leads to, where it has one.
    void openSettings(const QString &token = {});

  Q_SIGNALS:
    /// A window cannot be made; problem says why, for people who mend programs.
    void failed(const QString &problem);
    /// A window's own signal of that name, where it has one.
    void quitRequested();

  protected:
    /// A window that is asked to close draws nothing more, and is hidden once its last frame has been shown.
    bool eventFilter(QObject *object, QEvent *event) override;

  private:
    void open(QPointer<QQuickWindow> &window, const QUrl &url, const QString &token);
    [[nodiscard]] QQuickWindow *make(const QUrl &url);
    void placeOverMain(QQuickWindow *window) const;
    void tellTray();
    void hideLeaving();
    void collect();

    WallpaperManager &m_manager;
    SceneUrls m_urls;
    std::unique_ptr<QQmlEngine> m_engine;
    QTimer m_idle; ///< Runs from when nothing is left of the windows until that has settled, or one is opened again.
    QTimer m_lastFrame; ///< Runs while windows are leaving.
    QList<QPointer<QQuickWindow>> m_leaving;
    bool m_isTrayShown = true;
    QPointer<QQuickWindow> m_main;
    QPointer<QQuickWindow> m_settings;
};

} // namespace quorvane
