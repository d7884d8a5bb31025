#include "Manager/WallpaperSetter.h"

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

WallpaperSetter::WallpaperSetter(TaskScope &tasks, DesktopPicture &desktop, Screens *screens, QObject *parent)
    : QObject(parent)
    , m_tasks(tasks)
    , m_desktop(desktop)
    , m_screens(screens)
{
    m_thread.setMaxThreadCount(1);
    m_desktop.asking = [this](const QString &line) { m_mailbox.post([this, line] { Q_EMIT asks(line); }); };
    if (screens != nullptr) {
        connect(screens, &Screens::changed, this, &WallpaperSetter::handleScreenChange);
    }
}

WallpaperSetter::~WallpaperSetter()
{
    m_desktop.asking = {};
}

void WallpaperSetter::close()
{
    m_isClosed = true;
    m_desktop.stopAsking();
}

void WallpaperSetter::setCurrent(const QString &url)
{
    m_current = url;
    Q_EMIT currentChanged();
}

QCoro::Task<Result<>> WallpaperSetter::setting(QString url)
{
    auto apply = [desktop = &m_desktop, url]() -> Outcome {
        const QList<Screen> screens = desktop->screens();
        if (screens.isEmpty()) {
            return {false, kDone};
        }
        return {true, desktop->setPicture(url, screens)};
    };
    ++m_calls;
    const Outcome outcome = co_await onWorker(&m_thread, std::move(apply));
    Result<> result;
    if (!outcome.hasScreens) {
        result = Failure{tr("No screen found")};
    } else if (!outcome.shown) {
        result = Failure{tr("Failed: %1").arg(outcome.shown.failure().words)};
    } else {
        setCurrent(url);
    }
    answered();
    co_return result;
}

void WallpaperSetter::askForScreens(std::function<void(const QList<Screen> &)> told)
{
    m_tasks.start(askingForScreens(std::move(told)));
}

QCoro::Task<> WallpaperSetter::askingForScreens(std::function<void(const QList<Screen> &)> told)
{
    auto ask = [desktop = &m_desktop] { return desktop->screens(); };
    const QList<Screen> screens = co_await onWorker(&m_thread, std::move(ask));
    told(screens);
}

void WallpaperSetter::renew()
{
    if (m_screens != nullptr && !m_current.isEmpty()) {
        m_tasks.start(renewing());
    }
}

QCoro::Task<> WallpaperSetter::renewing()
{
    auto ask = [desktop = &m_desktop] { return desktop->endsWithTheProgram(); };
    const bool isGone = co_await onWorker(&m_thread, std::move(ask));
    if (isGone) {
        handleScreenChange();
    }
}

void WallpaperSetter::handleScreenChange()
{
    if (m_isClosed) {
        return;
    }
    // What is being set may miss the new screen, and is not the current wallpaper before the desktop has answered; the
    // current one of now would replace it.
    if (m_calls > 0) {
        m_missedChange = true;
        return;
    }
    if (!m_current.isEmpty() && QFileInfo::exists(m_current)) {
        m_tasks.start(syncing(m_current));
    }
}

QCoro::Task<> WallpaperSetter::syncing(QString url)
{
    auto apply = [desktop = &m_desktop, url]() -> Result<> {
        const QList<Screen> screens = desktop->screens();
        return screens.isEmpty() ? kDone : desktop->setPicture(url, screens);
    };
    ++m_calls;
    const Result<> shown = co_await onWorker(&m_thread, std::move(apply));
    if (!shown) {
        Q_EMIT syncFailed(tr("Failed to sync wallpaper: %1").arg(shown.failure().words));
    }
    answered();
}

void WallpaperSetter::answered()
{
    --m_calls;
    if (m_calls == 0 && std::exchange(m_missedChange, false)) {
        handleScreenChange();
    }
}

} // namespace quorvane
