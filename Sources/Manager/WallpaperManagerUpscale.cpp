// A 4K copy of a picture that is in the library already.

#include "Manager/Library/Library.h"
#include "Manager/WallpaperManager.h"
#include "Platform/Files/WholeFile.h"
#include "Platform/Threads/Worker.h"
#include "Providers/GeminiProvider.h"
#include "Storage/Keychain.h"
#include "Upscaling/GeminiUpscale.h"

#include <QFileInfo>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The whole file; throws with the system's words.
QByteArray contentOf(const QString &path, const std::stop_token &stop)
{
    Result<QByteArray> bytes = readWhole(path, kLargestPictureBytes, stop);
    if (!bytes) {
        throw std::runtime_error(bytes.failure().words.toStdString());
    }
    return std::move(*bytes);
}

} // namespace

void WallpaperManager::upscaleExistingImage(const QString &url)
{
    m_scope.start(upscalingExistingImage(url, begin(Operation::Kind::Upscale, url)));
}

QCoro::Task<> WallpaperManager::upscalingExistingImage(QString url, OperationRef operation)
{
    const auto fail = [this, operation](const QString &status) {
        report(*operation, status, true);
        end(operation);
    };

    // 1. Enlarge it by the chosen method.
    const bool isLocal = upscaleMethod() == UpscaleMethod::Local;
    if (const Result<> address = checkAddress(kGeminiService); !isLocal && !address) {
        fail(address.failure().words);
        co_return;
    }
    Result<EncodedImage> upscaled = EncodedImage();
    try {
        auto read = [url, stop = operation->stop.get_token()] { return contentOf(url, stop); };
        QByteArray source = co_await onWorker(std::move(read));
        if (isLocal) {
            report(*operation, tr("Upscaling to 4K (local)..."), false);
            upscaled = co_await upscaleLocally(std::move(source), operation);
        } else {
            const std::optional<QString> key = Keychain::load(kGeminiId);
            if (!key) {
                fail(tr("No Gemini API key — switch to Local upscale in Settings > Advanced"));
                co_return;
            }
            report(*operation, tr("Upscaling to 4K..."), false);
            operation->isAsking = true;
            QString ext = QFileInfo(url).suffix().toLower();
            std::stop_token stop = operation->stop.get_token();
            upscaled = co_await upscaleImage(m_services.http, std::move(source), std::move(ext), *key, std::move(stop));
        }
    } catch (const std::exception &error) {
        upscaled = failureOf(error);
    }
    QString name;
    if (upscaled) {
        name = co_await nameBeside(url, upscaled->extension, operation);
    }
    if (operation->isCancelled) {
        endCancelled(operation);
        co_return;
    }
    if (operation->isStopped()) {
        upscaled = Failure{operation->stopReason};
    }
    if (!upscaled) {
        fail(tr("Upscale failed: %1").arg(upscaled.failure().words));
        co_return;
    }

    // 2. Store the copy with the original's prompt and the link.
    operation->canBeCancelled = false;
    NewPicture picture{name, std::move((*upscaled).bytes), std::nullopt, url};
    const std::optional<Result<KeptPicture>> copy = co_await m_library->keepingCopy(std::move(picture));
    if (!copy || operation->isSourceDeleted) {
        fail(tr("Upscale failed: %1").arg(tr("the picture was deleted")));
        co_return;
    }
    if (!*copy) {
        fail(tr("Failed to save upscaled image"));
        co_return;
    }
    const KeptPicture &kept = **copy;
    operation->result.problems += kept.problems;

    // 3. Set it, and show it in the history.
    co_await applying(kept.path, operation);
    co_await m_library->refreshing();
    operation->result.file = kept.path;
    operation->result.original = url;
    end(operation);
}

QCoro::Task<EncodedImage> WallpaperManager::upscaleLocally(QByteArray image, OperationRef operation)
{
    auto progress = [this, operation](UpscaleProgress done) { tellingChanges([&] { advance(*operation, done); }); };
    std::exception_ptr failure;
    EncodedImage upscaled;
    try {
        upscaled = co_await m_services.localUpscale(std::move(image), operation->stop.get_token(), std::move(progress));
    } catch (...) {
        failure = std::current_exception();
    }
    tellingChanges([&] { operation->progress.reset(); });
    if (failure) {
        std::rethrow_exception(failure);
    }
    co_return upscaled;
}

} // namespace quorvane
