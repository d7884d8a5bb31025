// A 4K copy of a picture that is in the library already.

#include "Manager/WallpaperManager.h"
#include "Platform/Files/WholeFile.h"
#include "Platform/Threads/Worker.h"
#include "Providers/GeminiProvider.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
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
    setIsLoading(true);
    setUpscalingURL(url);
    setStatus(QString());
    setIsError(false);
    m_scope.start(upscalingExistingImage(url, m_nextOperation++));
}

QCoro::Task<> WallpaperManager::upscalingExistingImage(QString url, quint64 operation)
{
    const auto end = [this, operation](OperationResult result) {
        result.operation = operation;
        setIsLoading(false);
        setUpscalingURL(QString());
        Q_EMIT operationEnded(result);
    };

    // 1. Enlarge it by the chosen method.
    const bool isLocal = upscaleMethod() == "local"_L1;
    if (const Result<> address = checkAddress(kGeminiService); !isLocal && !address) {
        report(address.failure().words, true);
        end({});
        co_return;
    }
    EncodedImage upscaled;
    QString failure;
    try {
        auto read = [url, stop = m_scope.stopToken()] { return contentOf(url, stop); };
        QByteArray source = co_await onWorker(std::move(read));
        if (isLocal) {
            report(tr("Upscaling to 4K (local)..."), false);
            upscaled = co_await upscaleLocally(std::move(source));
        } else {
            const std::optional<QString> key = Keychain::load(u"gemini"_s);
            if (!key) {
                report(tr("No Gemini API key — switch to Local upscale in Settings > Advanced"), true);
                end({});
                co_return;
            }
            report(tr("Upscaling to 4K..."), false);
            QString ext = QFileInfo(url).suffix().toLower();
            upscaled = co_await upscaleImage(m_services.http, std::move(source), std::move(ext), *key);
        }
    } catch (const std::exception &error) {
        failure = failureOf(error).words;
    }
    if (!failure.isEmpty()) {
        report(tr("Upscale failed: %1").arg(failure), true);
        end({});
        co_return;
    }

    // 2. Store the copy with the original's prompt and the link.
    const QString copy = co_await savedImage(std::move(upscaled.bytes), upscaled.extension);
    if (copy.isEmpty()) {
        report(tr("Failed to save upscaled image"), true);
        end({});
        co_return;
    }
    auto record = [url, copy] {
        // The library knows its own pictures only: a namesake elsewhere has neither its prompt nor its copy.
        if (!ImageStore::isInLibrary(url)) {
            return;
        }
        const auto prompts = readTextMap(ImageStore::promptsPath());
        const auto prompt = prompts.find(imageName(url));
        if (prompt != prompts.end()) {
            (void)ImageStore::savePrompt(prompt->second, copy);
        }
        (void)ImageStore::saveVariantLink(url, copy);
    };
    co_await onWorker(&m_libraryThread, std::move(record));

    // 3. Set it, and show it in the history.
    co_await applying(copy);
    co_await reloadingHistory();
    end({.file = copy, .original = url});
}

QCoro::Task<EncodedImage> WallpaperManager::upscaleLocally(QByteArray image)
{
    auto progress = [this](UpscaleProgress done) { setProgress(done); };
    std::exception_ptr failure;
    EncodedImage upscaled;
    try {
        upscaled = co_await m_services.localUpscale(std::move(image), m_scope.stopToken(), std::move(progress));
    } catch (...) {
        failure = std::current_exception();
    }
    setProgress(std::nullopt);
    if (failure) {
        std::rethrow_exception(failure);
    }
    co_return upscaled;
}

} // namespace quorvane
