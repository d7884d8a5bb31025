// How an operation begins, reports and ends; and the short ones.

#include "Manager/Library/Library.h"
#include "Manager/WallpaperManager.h"
#include "Manager/WallpaperSetter.h"
#include "Platform/Files/StorageNotices.h"
#include "Storage/ImageStore.h"

namespace quorvane {

/// source is the picture that is to be enlarged, where that is what the operation is for.
OperationRef WallpaperManager::begin(Operation::Kind kind, const QString &source)
{
    OperationRef operation;
    tellingChanges([&] {
        operation = m_operations.begin(kind);
        operation->source = source;
    });
    if (kind == Operation::Kind::Generation || kind == Operation::Kind::Upscale) {
        publish(QString(), false);
    }
    return operation;
}

/// The one end of every operation. What is published afterwards is what still runs.
void WallpaperManager::end(const OperationRef &operation)
{
    const QStringList notices = StorageNotices::take();
    operation->result.problems += notices;
    tell(notices);
    tellingChanges([&] { m_operations.end(operation); });
    Q_EMIT operationEnded(operation->result);
}

/// The user wanted no more of it, so that is no failure to be told of; but who waits for a picture gets none.
void WallpaperManager::endCancelled(const OperationRef &operation)
{
    report(*operation, operation->stopReason, false);
    operation->result.isError = true;
    end(operation);
}

bool WallpaperManager::cancel()
{
    return m_operations.cancelMaking();
}

/// What the operation has to tell, to its own caller and to everyone.
void WallpaperManager::report(Operation &operation, const QString &status, bool isError)
{
    operation.result.status = status;
    operation.result.isError = isError;
    publish(status, isError, operation.result.problems);
}

void WallpaperManager::publish(const QString &status, bool isError, const QStringList &problems)
{
    if (m_problems != problems) {
        m_problems = problems;
        Q_EMIT problemsChanged();
    }
    m_isError = isError;
    Q_EMIT isErrorChanged();
    m_status = status;
    Q_EMIT statusChanged();
}

/// More lines below the status.
void WallpaperManager::tell(const QStringList &problems)
{
    if (!problems.isEmpty()) {
        m_problems += problems;
        Q_EMIT problemsChanged();
    }
}

/// Announces what the change makes of the running operations' common state.
void WallpaperManager::tellingChanges(const std::function<void()> &change)
{
    const bool wasLoading = isLoading();
    const QString url = upscalingURL();
    const std::optional<UpscaleProgress> before = progress();
    change();
    if (before != progress()) {
        Q_EMIT progressChanged();
    }
    if (wasLoading != isLoading()) {
        Q_EMIT isLoadingChanged();
    }
    if (url != upscalingURL()) {
        Q_EMIT upscalingURLChanged();
    }
}

void WallpaperManager::setWallpaper(const QString &url)
{
    m_scope.start(settingWallpaper(url, begin(Operation::Kind::Setting)));
}

QCoro::Task<> WallpaperManager::settingWallpaper(QString url, OperationRef operation)
{
    co_await applying(url, operation);
    if (!operation->result.isError) {
        operation->result.file = url;
    }
    end(operation);
}

/// The last step of everything that leads to a wallpaper.
QCoro::Task<> WallpaperManager::applying(QString url, OperationRef operation)
{
    const Result<> set = co_await m_setter->setting(url);
    if (set) {
        report(*operation, tr("Wallpaper set!"), false);
    } else {
        report(*operation, set.failure().words, true);
    }
}

void WallpaperManager::toggleFavorite(const QString &url)
{
    const OperationRef operation = begin(Operation::Kind::LibraryChange);
    const QString name = imageName(url);
    const bool isFavorite = m_library->toggleFavorite(name);
    m_scope.start(changingLibrary(m_library->writingFavorite(name, isFavorite), operation));
}

void WallpaperManager::deleteImage(const QString &url)
{
    m_operations.stopEnlarging(url, tr("the picture was deleted"));
    const OperationRef operation = begin(Operation::Kind::LibraryChange);
    m_scope.start(changingLibrary(m_library->deleting(url), operation));
}

/// A change that was not kept is no news for the status line: what it told before still holds.
QCoro::Task<> WallpaperManager::changingLibrary(QCoro::Task<Result<>> change, OperationRef operation)
{
    const Result<> kept = co_await std::move(change);
    if (!kept) {
        operation->result.isError = true;
        operation->result.status = kept.failure().words;
        tell({kept.failure().words});
    }
    end(operation);
}

} // namespace quorvane
