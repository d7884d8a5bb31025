// The one way by which a new wallpaper comes into being.

#include "Manager/FileNames.h"
#include "Manager/WallpaperManager.h"
#include "Platform/Threads/Worker.h"
#include "Providers/ImageServices.h"
#include "Storage/ImageStore.h"
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
    quint64 operation;
    bool isTimed;
};

void WallpaperManager::generateAndSet(Trigger trigger)
{
    const quint64 operation = m_nextOperation++;
    const bool isTimed = trigger == Trigger::Timer;
    setIsLoading(true);
    setStatus(QString());
    setIsError(false);

    const ImageProvider &provider = resolvedProvider();
    // Told before the key is read: a key must not even be looked up for an address that it may not go to.
    if (const Result<> address = checkAddress(provider.id()); !address) {
        report(address.failure().words, true);
        setIsLoading(false);
        Q_EMIT operationEnded({.file = {}, .original = {}, .operation = operation, .isTimed = isTimed});
        return;
    }
    const std::optional<QString> apiKey = Keychain::load(provider.id());
    if (!apiKey) {
        report(tr("Missing %1 API key — open Settings (⌘,)").arg(provider.name()), true);
        setIsLoading(false);
        Q_EMIT operationEnded({.file = {}, .original = {}, .operation = operation, .isTimed = isTimed});
        return;
    }
    Generation run{m_prompt,  &provider, resolvedModelId(), m_fourKEnabled && !providerProducesNative4K(), *apiKey,
                   operation, isTimed};
    m_scope.start(generating(std::move(run)));
}

QCoro::Task<> WallpaperManager::generating(Generation run)
{
    // 1. Ask the provider.
    EncodedImage generated;
    QString failure;
    try {
        generated = co_await run.provider->generate(run.prompt, run.apiKey, run.modelId, m_fourKEnabled);
    } catch (const std::exception &error) {
        failure = failureOf(error).words;
    }
    if (!failure.isEmpty()) {
        report(failure, true);
        setIsLoading(false);
        Q_EMIT operationEnded({.file = {}, .original = {}, .operation = run.operation, .isTimed = run.isTimed});
        co_return;
    }

    // 2. Enlarge it when 4K is wanted and the provider does not make it; the original is safe on disk before that.
    QString original;
    EncodedImage final = generated;
    if (run.needsUpscale) {
        original = co_await savedImage(generated.bytes, generated.extension);
        if (!original.isEmpty()) {
            auto recordPrompt = [prompt = run.prompt, original] { (void)ImageStore::savePrompt(prompt, original); };
            co_await onWorker(&m_libraryThread, std::move(recordPrompt));
        }
        final = co_await upscaledOrOriginal(std::move(generated));
        if (m_scope.stopToken().stop_requested() && !original.isEmpty()) {
            co_return; // The program ends; the original is in the library already.
        }
    }

    // 3. Save what is final, with its prompt and its link.
    const QString saved = co_await savedImage(std::move(final.bytes), final.extension);
    if (saved.isEmpty()) {
        report(tr("Failed to save image"), true);
        setIsLoading(false);
        Q_EMIT operationEnded({.file = {}, .original = original, .operation = run.operation, .isTimed = run.isTimed});
        co_return;
    }
    auto record = [prompt = run.prompt, original, saved] {
        (void)ImageStore::savePrompt(prompt, saved);
        if (!original.isEmpty()) {
            (void)ImageStore::saveVariantLink(original, saved);
        }
    };
    co_await onWorker(&m_libraryThread, std::move(record));

    // 4. Set it, and show it in the history.
    co_await applying(saved);
    co_await reloadingHistory();
    setIsLoading(false);
    Q_EMIT operationEnded({.file = saved, .original = original, .operation = run.operation, .isTimed = run.isTimed});
}

/// The enlarged picture, or the generated one where that fails; a failure is a warning in the status line.
QCoro::Task<EncodedImage> WallpaperManager::upscaledOrOriginal(EncodedImage generated)
{
    const bool isLocal = upscaleMethod() == "local"_L1;
    if (const Result<> address = checkAddress(kGeminiService); !isLocal && !address) {
        report(tr("Upscale failed, using original — %1").arg(address.failure().words), false);
        co_return generated;
    }
    const std::optional<QString> geminiKey = isLocal ? std::nullopt : Keychain::load(u"gemini"_s);
    if (!isLocal && !geminiKey) {
        co_return generated;
    }
    report(isLocal ? tr("Upscaling to 4K (local)...") : tr("Upscaling to 4K..."), false);
    try {
        EncodedImage upscaled;
        if (isLocal) {
            upscaled = co_await upscaleLocally(generated.bytes);
        } else {
            upscaled = co_await upscaleImage(m_services.http, generated.bytes, generated.extension, *geminiKey);
        }
        co_return upscaled;
    } catch (const std::exception &error) {
        const QString warning =
            isLocal ? tr("Local upscale failed, using original — %1") : tr("Upscale failed, using original — %1");
        report(warning.arg(failureOf(error).words), false);
    }
    co_return generated;
}

/// Writes the picture into the library under the name of the present second; empty when that failed.
QCoro::Task<QString> WallpaperManager::savedImage(QByteArray bytes, QString extension)
{
    auto write = [name = wallpaperFileName(now(), extension), bytes = std::move(bytes)] {
        return ImageStore::saveImage(name, bytes).value_or(QString());
    };
    co_return co_await onWorker(&m_libraryThread, std::move(write));
}

} // namespace quorvane
