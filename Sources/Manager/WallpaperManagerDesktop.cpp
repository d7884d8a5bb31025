// Setting the desktop's picture. The desktop may take its time, so it is asked on a thread of its own, and the status
// follows when it has answered.

#include "Manager/WallpaperManager.h"
#include "Platform/DesktopPicture.h"
#include "Platform/Worker.h"

namespace quorvane {

namespace {

struct Outcome
{
    bool hasScreens;
    std::optional<QString> failure;
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
            return {false, std::nullopt};
        }
        return {true, desktop->setPicture(url, screens)};
    };
    const Outcome outcome = co_await onWorker(&m_desktopThread, std::move(apply));
    if (!outcome.hasScreens) {
        report(QStringLiteral("No screen found"), true);
    } else if (outcome.failure) {
        report(QStringLiteral("Failed: ") + *outcome.failure, true);
    } else {
        setCurrentWallpaperURL(url);
        report(QStringLiteral("Wallpaper set!"), false);
    }
}

} // namespace quorvane
