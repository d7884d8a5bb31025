#include "App/Application/WallpaperApp.h"

#include "App/Command/Console.h"
#include "App/Control/ControlService.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/System/IdleMemory.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QSessionManager>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane {

WallpaperApp::WallpaperApp(SessionBus &bus, ControlService &control, SceneUrls urls, QObject *parent)
    : QObject(parent)
    , m_control(control)
    , m_delegate(&Scenes::windows)
    , m_notifications(bus)
    , m_menuBar(bus, m_services.manager)
    , m_scenes(m_services.manager, std::move(urls))
{
    QGuiApplication::setQuitOnLastWindowClosed(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
    qApp->installEventFilter(this);

    connect(&m_menuBar, &MenuBar::openWindowChosen, this, [this] { m_scenes.openMain(); });
    connect(&m_menuBar, &MenuBar::settingsChosen, this, [this] { m_scenes.openSettings(); });
    connect(&m_menuBar, &MenuBar::quitChosen, this, &WallpaperApp::reallyQuit);

    connect(&m_menuBar, &MenuBar::isShownChanged, this, [this] { m_scenes.setTrayShown(m_menuBar.isShown()); });
    m_scenes.setTrayShown(m_menuBar.isShown());
    connect(&m_scenes, &Scenes::quitRequested, this, &WallpaperApp::reallyQuit);
    connect(&m_control, &ControlService::activated, this, &WallpaperApp::openMain);
    connect(&m_control, &ControlService::settingsAsked, &m_scenes, &Scenes::openSettings);
    connect(&m_control, &ControlService::quitAsked, this, &WallpaperApp::reallyQuit);
    connect(&m_control, &ControlService::changed, &m_menuBar, &MenuBar::refresh);

    connect(&m_scenes, &Scenes::failed, this, [this](const QString &problem) {
        Console::printError(u"quorvane: "_s + problem);
        m_notifications.show({tr("The window cannot be opened"), problem, {}});
    });
    const auto settingsFailed = [this](const Failure &failure) {
        Console::printError(u"quorvane: "_s + failure.words);
        m_services.manager.tell({failure.words});
        m_notifications.show({tr("The settings are not kept"), failure.words, {}});
    };
    m_services.defaults.failed = settingsFailed;
    if (!m_services.defaults.reading()) {
        settingsFailed(m_services.defaults.reading().failure());
    }
    // X11 session managers would start what runs at log-out again, with its window; starting with the session is what
    // autostart is for. Direct, because the session manager waits for the answer.
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, &WallpaperApp::saveState, Qt::DirectConnection);
    connect(&m_signals, &UnixSignals::endAsked, this, &WallpaperApp::reallyQuit);
    connect(&m_services.manager, &WallpaperManager::operationEnded, this, &WallpaperApp::notify);

    // When the operation, and whatever followed it, has let go of its pictures.
    m_tidying.setSingleShot(true);
    m_tidying.setInterval(std::chrono::seconds(2));
    connect(&m_tidying, &QTimer::timeout, this, [this] {
        returnIdleMemory();
        if (!m_scenes.isAnyVisible()) {
            returnIdlePages();
        }
    });

    m_control.serve(m_services);
    if (const QStringList problems = m_services.manager.problems(); !problems.isEmpty()) {
        m_notifications.show(noticeOf(problems));
    }
}

WallpaperApp::~WallpaperApp()
{
    // Nothing is asked of a manager that is going, and what it still tells is nobody's business: the windows and the
    // menu go before it.
    m_control.release();
    m_services.defaults.failed = [](const Failure &failure) { Console::printError(u"quorvane: "_s + failure.words); };
    disconnect(&m_services.manager, nullptr, this, nullptr);
}

void WallpaperApp::openMain(const QString &token)
{
    m_scenes.openMain(token);
}

bool WallpaperApp::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && watched->isWindowType()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isCommand = key->modifiers() == Qt::ControlModifier || key->modifiers() == Qt::MetaModifier;
        if (isCommand && key->key() == Qt::Key_Q) {
            // Not from within the window that is about to close.
            QMetaObject::invokeMethod(this, &WallpaperApp::terminate, Qt::QueuedConnection);
            return true;
        }
        if (isCommand && key->key() == Qt::Key_Comma) {
            QMetaObject::invokeMethod(
                &m_scenes, [this] { m_scenes.openSettings(); }, Qt::QueuedConnection);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void WallpaperApp::terminate()
{
    if (m_delegate.applicationShouldTerminate() == AppDelegate::TerminateReply::TerminateNow) {
        // Not quit(), which asks every window and lets it refuse.
        QCoreApplication::exit(0);
    }
}

void WallpaperApp::reallyQuit()
{
    m_delegate.setShouldReallyQuit();
    terminate();
}

void WallpaperApp::saveState(QSessionManager &session)
{
    session.setRestartHint(QSessionManager::RestartNever);
    (void)m_services.defaults.sync(); // Who looks after the session is going, too.
}

void WallpaperApp::notify(const OperationResult &result)
{
    const auto notice = noticeFor(result, m_scenes.isAnyVisible());
    if (notice) {
        m_notifications.show(*notice);
    }
    m_tidying.start();
}

} // namespace quorvane
