// Construction, settings and the values derived from them.

#include "Manager/WallpaperManager.h"

#include "Manager/SettingsKeys.h"
#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Secrets/SecretStore.h"
#include "Platform/System/Clock.h"
#include "Platform/Threads/Worker.h"
#include "Providers/ImageServices.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

WallpaperManager::WallpaperManager(ManagerServices services, QObject *parent)
    : QObject(parent)
    , m_services(std::move(services))
    , m_providers(allProviders(*m_services.http))
{
    using namespace SettingsKeys;
    const UserDefaults &defaults = *m_services.defaults;
    m_libraryThread.setMaxThreadCount(1);
    m_desktopThread.setMaxThreadCount(1);
    beginHistory();
    if (m_services.clock != nullptr) {
        m_timer = m_services.clock->makeAlarm([this] { timerFired(); });
    }

    // These set the initial values directly: nothing is written back and no timer starts.
    m_prompt = defaults.text(kLastPrompt).value_or(QString());
    m_fourKEnabled = defaults.boolean(kFourKEnabled);
    m_nsfwEnabled = defaults.boolean(kNsfwEnabled);
    m_providerOverride = defaults.text(kProviderOverride).value_or(u"auto"_s);
    m_autoEnabled = defaults.boolean(kAutoEnabled);
    m_intervalMinutes = defaults.integer(kIntervalMinutes);
    if (m_intervalMinutes < 1) {
        m_intervalMinutes = kDefaultIntervalMinutes;
    }
    m_intervalMinutes = std::min(m_intervalMinutes, kLongestIntervalMinutes);
    restoreCurrentWallpaper();
    Keychain::migrateLegacyKey(*m_services.legacyKeys);
    m_scope.start(removingAbandonedFiles());
    if (m_autoEnabled) {
        startTimer();
    }
    setupWakeObserver();
    setupScreenObserver();
    setupDesktop();
}

WallpaperManager::~WallpaperManager()
{
    // The wait below runs the event loop, and nothing new may begin in it.
    m_timer.reset();
    disconnect(m_wakeObserver);
    disconnect(m_screenObserver);
    m_missedChange = false;
    m_services.http->cancelAll();
    m_services.desktop->stopAsking();
    m_scope.drain();
    m_services.desktop->asking = {};
}

const QList<int> &WallpaperManager::intervalOptions()
{
    static const QList<int> options{5, 15, 30, 60, 120, 240, 480, 720, 1440};
    return options;
}

void WallpaperManager::setPrompt(const QString &prompt)
{
    const bool isAnother = prompt != m_prompt;
    m_prompt = prompt;
    m_services.defaults->set(SettingsKeys::kLastPrompt, prompt);
    if (isAnother) {
        Q_EMIT promptChanged();
    }
}

void WallpaperManager::setFourKEnabled(bool enabled)
{
    m_fourKEnabled = enabled;
    m_services.defaults->set(SettingsKeys::kFourKEnabled, enabled);
    Q_EMIT fourKEnabledChanged();
}

void WallpaperManager::setNsfwEnabled(bool enabled)
{
    m_nsfwEnabled = enabled;
    m_services.defaults->set(SettingsKeys::kNsfwEnabled, enabled);
    Q_EMIT nsfwEnabledChanged();
}

void WallpaperManager::setProviderOverride(const QString &override)
{
    m_providerOverride = override;
    if (override == "auto"_L1) {
        m_services.defaults->remove(SettingsKeys::kProviderOverride);
    } else {
        m_services.defaults->set(SettingsKeys::kProviderOverride, override);
    }
    Q_EMIT providerOverrideChanged();
}

void WallpaperManager::setCurrentWallpaperURL(const QString &url)
{
    m_currentWallpaperURL = url;
    if (url.isEmpty()) {
        m_services.defaults->remove(SettingsKeys::kCurrentWallpaperPath);
    } else {
        m_services.defaults->set(SettingsKeys::kCurrentWallpaperPath, url);
    }
    Q_EMIT currentWallpaperURLChanged();
}

void WallpaperManager::restoreCurrentWallpaper()
{
    const QString stored = m_services.defaults->text(SettingsKeys::kCurrentWallpaperPath).value_or(QString());
    if (!stored.isEmpty() && QFileInfo::exists(stored)) {
        setCurrentWallpaperURL(stored);
    } else if (!m_currentWallpaperURL.isEmpty()) {
        m_currentWallpaperURL.clear();
        Q_EMIT currentWallpaperURLChanged();
    }
}

void WallpaperManager::setStatus(const QString &status)
{
    m_status = status;
    Q_EMIT statusChanged();
}

void WallpaperManager::setIsError(bool isError)
{
    m_isError = isError;
    Q_EMIT isErrorChanged();
}

void WallpaperManager::setIsLoading(bool isLoading)
{
    m_isLoading = isLoading;
    Q_EMIT isLoadingChanged();
}

void WallpaperManager::setUpscalingURL(const QString &url)
{
    m_upscalingURL = url;
    Q_EMIT upscalingURLChanged();
}

void WallpaperManager::setProgress(std::optional<UpscaleProgress> progress)
{
    m_progress = progress;
    Q_EMIT progressChanged();
}

void WallpaperManager::report(const QString &status, bool isError)
{
    setIsError(isError);
    setStatus(status);
}

const ImageProvider *WallpaperManager::providerWithId(const QString &id) const
{
    const auto found = std::find_if(m_providers.begin(), m_providers.end(),
                                    [&id](const auto &provider) { return provider->id() == id; });
    return found == m_providers.end() ? nullptr : found->get();
}

bool WallpaperManager::nsfwApplies() const
{
    return m_providerOverride == "auto"_L1 || m_providerOverride == "grok"_L1;
}

const ImageProvider &WallpaperManager::resolvedProvider() const
{
    const bool isAuto = m_providerOverride == "auto"_L1;
    if (!isAuto) {
        if (const ImageProvider *chosen = providerWithId(m_providerOverride)) {
            return *chosen;
        }
    }
    const bool wantsGrok = isAuto && nsfwApplies() && m_nsfwEnabled;
    const ImageProvider *provider = providerWithId(wantsGrok ? u"grok"_s : u"gemini"_s);
    Q_ASSERT(provider != nullptr);
    return *provider;
}

QString WallpaperManager::resolvedModelId() const
{
    return selectedModel(resolvedProvider().id());
}

QString WallpaperManager::selectedModel(const QString &providerId) const
{
    const ImageProvider *provider = providerWithId(providerId);
    const QList<ModelOption> models = provider != nullptr ? provider->models() : QList<ModelOption>();
    const std::optional<QString> chosen = m_services.defaults->text(SettingsKeys::selectedModel(providerId));
    const bool isOffered = chosen && std::any_of(models.begin(), models.end(),
                                                 [&chosen](const ModelOption &model) { return model.id == *chosen; });
    if (isOffered) {
        return *chosen;
    }
    return models.isEmpty() ? QString() : models.first().id;
}

void WallpaperManager::setSelectedModel(const QString &providerId, const QString &modelId)
{
    m_services.defaults->set(SettingsKeys::selectedModel(providerId), modelId);
    Q_EMIT selectedModelChanged(providerId);
}

bool WallpaperManager::providerProducesNative4K() const
{
    return makes4K(resolvedProvider().id(), resolvedModelId());
}

QString WallpaperManager::upscaleMethod() const
{
    const QString method = m_services.defaults->text(SettingsKeys::kUpscaleMethod).value_or(QString());
    return method == "local"_L1 ? method : u"gemini"_s;
}

void WallpaperManager::setUpscaleMethod(const QString &method)
{
    m_services.defaults->set(SettingsKeys::kUpscaleMethod, method);
    Q_EMIT upscaleMethodChanged();
}

TextMap WallpaperManager::storedKeys()
{
    return Keychain::readAll();
}

void WallpaperManager::saveKey(const QString &key, const QString &providerId)
{
    (void)Keychain::save(key, providerId);
    Q_EMIT keysChanged();
}

void WallpaperManager::removeKey(const QString &providerId)
{
    (void)Keychain::remove(providerId);
    Q_EMIT keysChanged();
}

QSet<QString> WallpaperManager::storedKeyIds()
{
    QSet<QString> ids;
    for (const auto &[id, key] : Keychain::readAll()) {
        ids.insert(id);
    }
    return ids;
}

QStringList WallpaperManager::missingKeys(const QSet<QString> &keys) const
{
    const ImageProvider &provider = resolvedProvider();
    QStringList missing;
    if (!keys.contains(provider.id())) {
        missing.append(provider.name());
    }
    const bool upscalesRemotely = m_fourKEnabled && !providerProducesNative4K() && upscaleMethod() != "local"_L1;
    if (upscalesRemotely && !keys.contains(u"gemini"_s) && !missing.contains(u"Gemini"_s)) {
        missing.append(tr("Gemini (for 4K upscale)"));
    }
    return missing;
}

/// Half-written files of a killed run, on the library's thread after whatever the start needs.
QCoro::Task<> WallpaperManager::removingAbandonedFiles()
{
    auto remove = [] {
        ImageStore::removeAbandonedTemporaries();
        Keychain::removeAbandonedTemporaries();
    };
    co_await onWorker(&m_libraryThread, std::move(remove));
}

QDateTime WallpaperManager::now() const
{
    return m_services.clock != nullptr ? m_services.clock->now() : QDateTime::currentDateTime();
}

void WallpaperManager::waitUntilIdle()
{
    m_scope.wait();
}

} // namespace quorvane
