// The one way by which a new wallpaper comes into being.

#include "Manager/Library/FileNames.h"
#include "Manager/Library/Library.h"
#include "Manager/NextSecond.h"
#include "Manager/WallpaperManager.h"
#include "Providers/ImageServices.h"
#include "Storage/ImageNames.h"
#include "Storage/Keychain.h"
#include "Upscaling/GeminiUpscale.h"

using namespace Qt::StringLiterals;

namespace quorvane {

/// What a run takes with it at the moment of the call; later changes of the settings are another run's.
struct WallpaperManager::Generation
{
    QString prompt;
    const ImageProvider *provider;
    QString modelId;
    bool needsUpscale;
    QString apiKey;
    OperationRef operation;
};

void WallpaperManager::generateAndSet()
{
    generate(false);
}

void WallpaperManager::generate(bool isTimed)
{
    const OperationRef operation = begin(Operation::Kind::Generation);
    operation->result.isTimed = isTimed;

    const ProviderChoice chosen = choice();
    const ImageProvider &provider = chosen.provider(m_providers);
    // Told before the key is read: a key must not even be looked up for an address that it may not go to.
    if (const Result<> address = checkAddress(provider.id()); !address) {
        report(*operation, address.failure().words, true);
        end(operation);
        return;
    }
    const std::optional<QString> apiKey = Keychain::load(provider.id());
    if (!apiKey) {
        report(*operation, tr("Missing %1 API key — open Settings (⌘,)").arg(provider.name()), true);
        end(operation);
        return;
    }
    Generation run{m_prompt, &provider, chosen.modelId(m_providers), chosen.needsUpscale(m_providers),
                   *apiKey,  operation};
    m_scope.start(generating(std::move(run)));
}

QCoro::Task<> WallpaperManager::generating(Generation run)
{
    const OperationRef operation = run.operation;
    OperationResult &result = operation->result;
    const auto fail = [this, operation](const QString &status) {
        report(*operation, status, true);
        end(operation);
    };

    // 1. Ask the provider.
    Result<EncodedImage> generated = EncodedImage();
    try {
        operation->isAsking = true;
        std::stop_token stop = operation->stop.get_token();
        generated =
            co_await run.provider->generate(run.prompt, run.apiKey, run.modelId, m_fourKEnabled, std::move(stop));
    } catch (const std::exception &error) {
        generated = failureOf(error);
    }
    if (operation->isCancelled) {
        endCancelled(operation);
        co_return;
    }
    operation->isAsking = false;
    if (!generated) {
        fail(generated.failure().words);
        co_return;
    }

    // 2. Enlarge it when 4K is wanted and the provider does not make it; the original is safe on disk before that.
    EncodedImage final = *generated;
    bool isOriginalKept = false;
    if (run.needsUpscale) {
        NewPicture original{wallpaperFileName(now(), final.extension), final.bytes, run.prompt, {}};
        const Result<KeptPicture> kept = co_await keeping(std::move(original), operation);
        isOriginalKept = bool(kept);
        if (kept) {
            result.original = kept->path;
            operation->source = kept->path;
        }
        final = co_await upscaledOrOriginal(std::move(*generated), operation);
    }
    const QString name = co_await nameBeside(result.original, final.extension, operation);
    // The original is in the library already, or was deleted; where it could not be saved, what was made is.
    if (operation->isCancelled && isOriginalKept) {
        co_await m_library->refreshing();
        endCancelled(operation);
        co_return;
    }
    if (operation->isStopped() && isOriginalKept) {
        fail(tr("Upscale failed: %1").arg(operation->stopReason));
        co_return;
    }

    // 3. Save what is final, with its prompt and its link.
    operation->canBeCancelled = false;
    NewPicture picture{name, std::move(final.bytes), run.prompt, result.original};
    const Result<KeptPicture> saved = co_await keeping(std::move(picture), operation);
    if (!saved) {
        fail(tr("Failed to save image"));
        co_return;
    }
    if (operation->isSourceDeleted) {
        fail(tr("Upscale failed: %1").arg(operation->stopReason));
        co_return;
    }
    result.file = saved->path;

    // 4. Set it, and show it in the history.
    co_await applying(saved->path, operation);
    co_await m_library->refreshing();
    end(operation);
}

/// The enlarged picture, or the generated one where that fails; a failure is a warning in the status line.
QCoro::Task<EncodedImage> WallpaperManager::upscaledOrOriginal(EncodedImage generated, OperationRef operation)
{
    const bool isLocal = upscaleMethod() == UpscaleMethod::Local;
    if (const Result<> address = checkAddress(kGeminiService); !isLocal && !address) {
        report(*operation, tr("Upscale failed, using original — %1").arg(address.failure().words), false);
        co_return generated;
    }
    const std::optional<QString> geminiKey = isLocal ? std::nullopt : Keychain::load(kGeminiId);
    if (!isLocal && !geminiKey) {
        co_return generated;
    }
    report(*operation, isLocal ? tr("Upscaling to 4K (local)...") : tr("Upscaling to 4K..."), false);
    try {
        EncodedImage upscaled;
        if (isLocal) {
            upscaled = co_await upscaleLocally(generated.bytes, operation);
        } else {
            operation->isAsking = true;
            std::stop_token stop = operation->stop.get_token();
            upscaled = co_await upscaleImage(m_services.http, generated.bytes, generated.extension, *geminiKey,
                                             std::move(stop));
        }
        co_return upscaled;
    } catch (const std::exception &error) {
        const QString warning =
            isLocal ? tr("Local upscale failed, using original — %1") : tr("Upscale failed, using original — %1");
        if (!operation->isCancelled) {
            report(*operation, warning.arg(failureOf(error).words), false);
        }
    }
    co_return generated;
}

/// The name of a picture that is written now and is linked to original. Names tell seconds, and one of the very second
/// of original would replace it and be hidden behind itself; so that one waits for the next second.
QCoro::Task<QString> WallpaperManager::nameBeside(QString original, QString extension, OperationRef operation)
{
    const QDateTime moment = now();
    QString name = wallpaperFileName(moment, extension);
    if (!original.isEmpty() && name == imageName(original)) {
        co_await nextSecond(moment, operation->stop.get_token());
        // The same again only where the clock was set back or stands, and then the original is replaced.
        name = wallpaperFileName(now(), extension);
    }
    co_return name;
}

/// What could not be recorded is told.
QCoro::Task<Result<KeptPicture>> WallpaperManager::keeping(NewPicture picture, OperationRef operation)
{
    Result<KeptPicture> kept = co_await m_library->keeping(std::move(picture));
    if (kept && operation->result.problems != kept->problems) { // Of original and copy alike, once.
        operation->result.problems += kept->problems;
    }
    co_return kept;
}

} // namespace quorvane
