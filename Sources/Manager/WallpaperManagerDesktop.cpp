// Setting the desktop's picture, and again when the screens changed. The desktop may take its time, so it is asked on a
// thread of its own, and the status follows when it has answered.

#include "Manager/WallpaperManager.h"
#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/System/Screens.h"
#include "Platform/Threads/Worker.h"

#include <QFileInfo>

#include <utility>

namespace quorvane {

namespace {

struct Outcome
{
    bool hasScreens;
    Result<> shown;
};

} // namespace

void WallpaperManager::setWallpaper(const QString &url)
{
    m_scope.start(settingWallpaper(url, m_nextOperation++));
}

QCoro::Task<> WallpaperManager::settingWallpaper(QString url, quint64 operation)
{
    co_await applying(url);
    Q_EMIT operationEnded({.file = m_isError ? QString() : url, .original = {}, .operation = operation});
}

QCoro::Task<> WallpaperManager::applying(QString url)
{
    auto apply = [desktop = m_services.desktop, url]() -> Outcome {
        const QList<Screen> screens = desktop->screens();
        if (screens.isEmpty()) {
            return {false, kDone};
        }
        return {true, desktop->setPicture(url, screens)};
    };
    ++m_desktopCalls;
    const Outcome outcome = co_await onWorker(&m_desktopThread, std::move(apply));
    if (!outcome.hasScreens) {
        report(tr("No screen found"), true);
    } else if (!outcome.shown) {
        report(tr("Failed: %1").arg(outcome.shown.failure().words), true);
    } else {
        setCurrentWallpaperURL(url);
        report(tr("Wallpaper set!"), false);
    }
    desktopAnswered();
}

void WallpaperManager::askForScreens(std::function<void(const QList<Screen> &)> told)
{
    m_scope.start(askingForScreens(std::move(told)));
}

QCoro::Task<> WallpaperManager::askingForScreens(std::function<void(const QList<Screen> &)> told)
{
    auto ask = [desktop = m_services.desktop] { return desktop->screens(); };
    const QList<Screen> screens = co_await onWorker(&m_desktopThread, std::move(ask));
    told(screens);
}

void WallpaperManager::setupScreenObserver()
{
    if (m_services.screens != nullptr) {
        m_screenObserver = connect(m_services.screens, &Screens::changed, this, &WallpaperManager::handleScreenChange);
    }
}

void WallpaperManager::setupDesktop()
{
    m_services.desktop->asking = [this](const QString &line) { m_mailbox.post([this, line] { report(line, false); }); };
    // What goes with every program that set it comes back in the same way as after a change of the screens.
    if (m_services.screens != nullptr && !m_currentWallpaperURL.isEmpty()) {
        m_scope.start(renewingWallpaper());
    }
}

QCoro::Task<> WallpaperManager::renewingWallpaper()
{
    auto ask = [desktop = m_services.desktop] { return desktop->endsWithTheProgram(); };
    const bool isGone = co_await onWorker(&m_desktopThread, std::move(ask));
    if (isGone && !m_scope.stopToken().stop_requested()) {
        handleScreenChange();
    }
}

void WallpaperManager::handleScreenChange()
{
    // What is being set may miss the new screen, and is not the current wallpaper before the desktop has answered; the
    // current one of now would replace it.
    if (m_desktopCalls > 0) {
        m_missedChange = true;
        return;
    }
    if (!m_currentWallpaperURL.isEmpty() && QFileInfo::exists(m_currentWallpaperURL)) {
        m_scope.start(syncingWallpaper(m_currentWallpaperURL));
    }
}

QCoro::Task<> WallpaperManager::syncingWallpaper(QString url)
{
    auto apply = [desktop = m_services.desktop, url]() -> Result<> {
        const QList<Screen> screens = desktop->screens();
        return screens.isEmpty() ? kDone : desktop->setPicture(url, screens);
    };
    ++m_desktopCalls;
    const Result<> shown = co_await onWorker(&m_desktopThread, std::move(apply));
    if (!shown) {
        report(tr("Failed to sync wallpaper: %1").arg(shown.failure().words), true);
    }
    desktopAnswered();
}

void WallpaperManager::desktopAnswered()
{
    --m_desktopCalls;
    if (m_desktopCalls == 0 && std::exchange(m_missedChange, false)) {
        handleScreenChange();
    }
}

} // namespace quorvane
