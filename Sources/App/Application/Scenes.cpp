#include "App/Application/Scenes.h"

#include "Manager/WallpaperManager.h"
#include "Platform/Logging.h"
#include "Platform/System/IdleMemory.h"

#include <QGuiApplication>
#include <QPixmapCache>
#include <QQmlComponent>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Three frames of a slow screen.
constexpr std::chrono::milliseconds kLastFrame{50};

} // namespace

Scenes::Scenes(WallpaperManager &manager, SceneUrls urls, QObject *parent)
    : QObject(parent)
    , m_manager(manager)
    , m_urls(std::move(urls))
{
    m_idle.setSingleShot(true);
    m_idle.setInterval(std::chrono::milliseconds(500));
    connect(&m_idle, &QTimer::timeout, this, &returnIdlePages);
    m_lastFrame.setSingleShot(true);
    m_lastFrame.setInterval(kLastFrame);
    connect(&m_lastFrame, &QTimer::timeout, this, &Scenes::hideLeaving);
}

Scenes::~Scenes()
{
    // The windows before the engine that made them.
    delete m_main;
    delete m_settings;
}

void Scenes::openMain(const QString &token)
{
    open(m_main, m_urls.main, token);
}

void Scenes::openSettings(const QString &token)
{
    open(m_settings, m_urls.settings, token);
}

void Scenes::open(QPointer<QQuickWindow> &window, const QUrl &url, const QString &token)
{
    m_idle.stop();
    if (window.isNull()) {
        window = make(url);
        if (window.isNull()) {
            collect();
            return;
        }
        // A window that was closed is gone, not hidden; not at once, because it may be in the middle of an event.
        connect(window, &QWindow::visibleChanged, this, &Scenes::collect, Qt::QueuedConnection);
        if (QGuiApplication::platformName().startsWith("wayland"_L1)) {
            window->installEventFilter(this);
        }
        if (window->metaObject()->indexOfSignal("settingsRequested()") >= 0) {
            connect(window, SIGNAL(settingsRequested()), this, SLOT(openSettings()));
        }
        if (window->metaObject()->indexOfSignal("quitRequested()") >= 0) {
            // Not from within the window that is about to go.
            connect(window, SIGNAL(quitRequested()), this, SIGNAL(quitRequested()), Qt::QueuedConnection);
        }
        if (window == m_settings) {
            placeOverMain(window);
        }
        tellTray();
        qCInfo(logWindows) << "made" << url.fileName();
    }
    if (m_leaving.removeAll(window) > 0) {
        window->requestUpdate();
    }
    if (!token.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8()); // Read and removed by Qt at requestActivate().
    }
    if (window->windowStates().testFlag(Qt::WindowMinimized)) {
        window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
    }
    window->show();
    window->raise();
    window->requestActivate();
}

void Scenes::placeOverMain(QQuickWindow *window) const
{
    if (m_main.isNull() || !m_main->isVisible()) {
        return;
    }
    // The first is for desktops that place windows themselves and keep them above what they belong to, the second for
    // those that ask.
    window->setTransientParent(m_main);
    QRect place(QPoint(), window->size());
    place.moveCenter(m_main->geometry().center());
    window->setPosition(place.topLeft());
}

QQuickWindow *Scenes::make(const QUrl &url)
{
    if (!m_engine) {
        m_engine = std::make_unique<QQmlEngine>();
        m_engine->addImportPath(u"qrc:/qt/qml"_s);
        if (m_urls.install) {
            m_urls.install(m_engine.get());
        }
    }
    QQmlComponent component(m_engine.get(), url);
    QObject *object = nullptr;
    if (component.isReady()) { // Qt 6.4 crashes on one that is not.
        const QVariantMap properties{{u"manager"_s, QVariant::fromValue(&m_manager)}};
        object = component.createWithInitialProperties(properties);
    }
    auto *window = qobject_cast<QQuickWindow *>(object);
    if (window == nullptr) {
        delete object;
        const QString reason = component.isError() ? component.errorString().trimmed() : tr("it is no window");
        Q_EMIT failed(tr("%1 cannot be opened: %2").arg(url.toString(), reason));
    }
    return window;
}

void Scenes::setTrayShown(bool isShown)
{
    m_isTrayShown = isShown;
    tellTray();
}

void Scenes::tellTray()
{
    if (!m_main.isNull() && m_main->metaObject()->indexOfProperty("trayShown") >= 0) {
        m_main->setProperty("trayShown", m_isTrayShown);
    }
}

bool Scenes::isAnyVisible() const
{
    const auto isVisible = [this](const QPointer<QQuickWindow> &window) {
        return !window.isNull() && window->isVisible() && !m_leaving.contains(window);
    };
    return isVisible(m_main) || isVisible(m_settings);
}

bool Scenes::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Close && event->type() != QEvent::UpdateRequest) {
        return false; // Some come while the window is being destroyed, and is no QQuickWindow any more.
    }
    // Qt's Wayland client is told on a thread of its own that a frame was shown, and up to 6.4 at least it crashes when
    // the window goes at that moment. So the last frame goes first.
    auto *window = qobject_cast<QQuickWindow *>(object);
    if (event->type() == QEvent::Close) {
        event->ignore();
        if (!m_leaving.contains(window)) {
            m_leaving.append(window);
            m_lastFrame.start();
        }
        return true;
    }
    return m_leaving.contains(window);
}

void Scenes::hideLeaving()
{
    for (const QPointer<QQuickWindow> &window : std::exchange(m_leaving, {})) {
        if (!window.isNull()) {
            window->hide();
        }
    }
}

void Scenes::collect()
{
    for (QPointer<QQuickWindow> *window : {&m_main, &m_settings}) {
        if (!window->isNull() && !(*window)->isVisible()) {
            delete *window;
            qCInfo(logWindows) << "let go of a window";
        }
    }
    if (m_engine && m_main.isNull() && m_settings.isNull()) {
        m_engine.reset();
        qCInfo(logWindows) << "let go of everything that windows need";
        QPixmapCache::clear();
        returnIdleMemory();
        m_idle.start(); // What follows a close still runs, and would fetch pages back.
    }
}

std::vector<ApplicationWindow> Scenes::windows()
{
    std::vector<ApplicationWindow> found;
    const QWindowList all = QGuiApplication::topLevelWindows();
    for (QWindow *window : all) {
        const bool isManaged = !window->flags().testFlag(Qt::BypassWindowManagerHint); // An icon in a tray is not.
        const bool canBecomeMain = isManaged && (window->type() == Qt::Window || window->type() == Qt::Dialog);
        found.push_back({canBecomeMain, window->isVisible(), [closing = QPointer<QWindow>(window)] {
                             if (!closing.isNull()) {
                                 closing->close();
                             }
                         }});
    }
    return found;
}

} // namespace quorvane
