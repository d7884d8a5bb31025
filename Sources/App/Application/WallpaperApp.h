#pragma once

#include "App/Application/AppDelegate.h"
#include "App/Application/Scenes.h"
#include "App/Application/UnixSignals.h"
#include "App/Command/Services.h"
#include "App/Tray/MenuBar.h"
#include "App/Tray/Notifications.h"

#include <QObject>
#include <QTimer>

class QSessionManager;

namespace quorvane {

class ControlService;
class SessionBus;

/// The application: its one manager, the windows, the menu, and when it ends. There is one object, for as long as the
/// process is the application.
class WallpaperApp : public QObject
{
    Q_OBJECT

  public:
    WallpaperApp(SessionBus &bus, ControlService &control, SceneUrls urls, QObject *parent = nullptr);
    ~WallpaperApp() override;

    void openMain(const QString &token = {});

    /// Sees the keys of every window: Ctrl+Q and Meta+Q, Ctrl+, and Meta+, .
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    /// The quit command: may close the windows only.
    void terminate();
    /// Ends in any case.
    void reallyQuit();
    void saveState(QSessionManager &session);
    void notify(const OperationResult &result);

    ControlService &m_control;
    Services m_services{Services::Life::Application};
    AppDelegate m_delegate;
    Notifications m_notifications;
    MenuBar m_menuBar;
    Scenes m_scenes;
    UnixSignals m_signals;
    QTimer m_tidying;
};

} // namespace quorvane
