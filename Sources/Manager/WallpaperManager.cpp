// Construction, settings, and what the owners are asked.

#include "Manager/WallpaperManager.h"

#include "Manager/Library/Library.h"
#include "Manager/Schedule.h"
#include "Manager/SettingsKeys.h"
#include "Manager/Undo/Deletions.h"
#include "Manager/WallpaperSetter.h"
#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/Files/StorageNotices.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Secrets/SecretStore.h"
#include "Platform/System/Clock.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane {

WallpaperManager::WallpaperManager(ManagerServices services, QObject *parent)
    : QObject(parent)
    , m_services(std::move(services))
    , m_providers(allProviders(*m_services.http))
    , m_library(std::make_unique<Library>(m_scope))
    , m_deletions(std::make_unique<Deletions>(*m_library, m_scope, m_services.clock))
    , m_keyRemovals(std::make_unique<Undo>(m_services.clock))
    , m_setter(std::make_unique<WallpaperSetter>(m_scope, *m_services.desktop, m_services.screens))
    , m_schedule(std::make_unique<Schedule>(m_services.clock, m_services.powerEvents))
{
    using namespace SettingsKeys;
    const UserDefaults &defaults = *m_services.defaults;
    connect(m_library.get(), &Library::historyChanged, this, &WallpaperManager::historyChanged);
    connect(m_library.get(), &Library::favoritesChanged, this, &WallpaperManager::favoritesChanged);
    connect(m_deletions.get(), &Deletions::removing, this, [this](const QStringList &urls) {
        for (const QString &url : urls) {
            m_operations.stopEnlarging(url, tr("the picture was deleted"));
        }
    });
    connect(m_deletions.get(), &Deletions::ended, this, [this](const Result<> &result) {
        tell((result ? QStringList() : QStringList(result.failure().words)) + StorageNotices::take());
    });
    connect(m_setter.get(), &WallpaperSetter::currentChanged, this, [this] {
        // One that is gone stays stored: the disk may only be unplugged.
        if (!m_setter->current().isEmpty()) {
            m_services.defaults->set(SettingsKeys::kCurrentWallpaperPath, m_setter->current());
        }
        Q_EMIT currentWallpaperURLChanged();
    });
    connect(m_setter.get(), &WallpaperSetter::asks, this, [this](const QString &line) { publish(line, false); });
    connect(m_setter.get(), &WallpaperSetter::syncFailed, this, [this](const QString &line) { publish(line, true); });
    connect(m_schedule.get(), &Schedule::nextFireDateChanged, this, &WallpaperManager::nextFireDateChanged);
    connect(m_schedule.get(), &Schedule::due, this, [this] { generate(true); });

    // These set the initial values directly: nothing is written back and no timer starts.
    m_prompt = defaults.text(kLastPrompt).value_or(QString());
    m_fourKEnabled = defaults.boolean(kFourKEnabled);
    m_nsfwEnabled = defaults.boolean(kNsfwEnabled);
    m_providerOverride = defaults.text(kProviderOverride).value_or(kAutomatic);
    m_autoEnabled = defaults.boolean(kAutoEnabled);
    m_intervalMinutes = Schedule::sensibleInterval(defaults.integer(kIntervalMinutes));
    restoreCurrentWallpaper();
    Keychain::migrateLegacyKey(*m_services.legacyKeys);
    m_scope.start(m_library->removingAbandonedFiles());
    if (m_autoEnabled) {
        startTimer();
    }
    m_setter->renew();
    tell(StorageNotices::take());
}

WallpaperManager::~WallpaperManager()
{
    // The wait below runs the event loop, and nothing new may begin in it.
    m_schedule->disconnect(this);
    m_schedule->stop();
    m_setter->close();
    m_services.http->cancelAll();
    m_operations.stopAll(tr("Quorvane is quitting"));
    m_scope.drain();
}

const QList<int> &WallpaperManager::intervalOptions()
{
    static const QList<int> options{5, 15, 30, 60, 120, 240, 480, 720, 1440};
    return options;
}

QDateTime WallpaperManager::now() const
{
    return m_services.clock != nullptr ? m_services.clock->now() : QDateTime::currentDateTime();
}

void WallpaperManager::waitUntilIdle()
{
    m_scope.wait();
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
    if (override == kAutomatic) {
        m_services.defaults->remove(SettingsKeys::kProviderOverride);
    } else {
        m_services.defaults->set(SettingsKeys::kProviderOverride, override);
    }
    Q_EMIT providerOverrideChanged();
}

UpscaleMethod WallpaperManager::upscaleMethod() const
{
    return upscaleMethodOf(m_services.defaults->text(SettingsKeys::kUpscaleMethod).value_or(QString()));
}

void WallpaperManager::setUpscaleMethod(UpscaleMethod method)
{
    m_services.defaults->set(SettingsKeys::kUpscaleMethod, idOf(method));
    Q_EMIT upscaleMethodChanged();
}

QString WallpaperManager::selectedModel(const QString &providerId) const
{
    return choice().modelOf(m_providers, providerId);
}

void WallpaperManager::setSelectedModel(const QString &providerId, const QString &modelId)
{
    m_services.defaults->set(SettingsKeys::selectedModel(providerId), modelId);
    Q_EMIT selectedModelChanged(providerId);
}

TextMap WallpaperManager::storedKeys()
{
    return Keychain::readAll();
}

QSet<QString> WallpaperManager::storedKeyIds()
{
    QSet<QString> ids;
    for (const auto &[id, key] : Keychain::readAll()) {
        ids.insert(id);
    }
    return ids;
}

Result<> WallpaperManager::saveKey(const QString &key, const QString &providerId)
{
    return keysWereChanged(Keychain::save(key, providerId));
}

Result<> WallpaperManager::removeKey(const QString &providerId)
{
    return keysWereChanged(Keychain::remove(providerId));
}

Result<> WallpaperManager::keysWereChanged(const Result<> &kept)
{
    if (!kept) {
        tell({kept.failure().words});
    }
    tell(StorageNotices::take());
    Q_EMIT keysChanged();
    return kept;
}

ProviderChoice WallpaperManager::choice() const
{
    ProviderChoice choice{m_providerOverride, m_nsfwEnabled, m_fourKEnabled, upscaleMethod(), {}};
    for (const auto &provider : m_providers) {
        const QString id = provider->id();
        if (const auto model = m_services.defaults->text(SettingsKeys::selectedModel(id))) {
            choice.chosenModels.emplace(id, *model);
        }
    }
    return choice;
}

bool WallpaperManager::nsfwApplies() const
{
    return choice().nsfwApplies(m_providers);
}

const ImageProvider &WallpaperManager::resolvedProvider() const
{
    return choice().provider(m_providers);
}

QString WallpaperManager::resolvedModelId() const
{
    return choice().modelId(m_providers);
}

bool WallpaperManager::providerProducesNative4K() const
{
    return choice().producesNative4K(m_providers);
}

QStringList WallpaperManager::missingKeys(const QSet<QString> &storedKeyIds) const
{
    return choice().missingKeys(m_providers, storedKeyIds);
}

const QString &WallpaperManager::currentWallpaperURL() const
{
    return m_setter->current();
}

void WallpaperManager::restoreCurrentWallpaper()
{
    const QString stored = m_services.defaults->text(SettingsKeys::kCurrentWallpaperPath).value_or(QString());
    if (!stored.isEmpty() && QFileInfo::exists(stored)) {
        m_setter->setCurrent(stored);
    } else if (!m_setter->current().isEmpty()) {
        m_setter->setCurrent(QString());
    }
}

void WallpaperManager::askForScreens(std::function<void(const QList<Screen> &)> told)
{
    m_setter->askForScreens(std::move(told));
}

void WallpaperManager::setAutoEnabled(bool enabled)
{
    m_autoEnabled = enabled;
    m_services.defaults->set(SettingsKeys::kAutoEnabled, enabled);
    Q_EMIT autoEnabledChanged();
    if (enabled) {
        startTimer();
    } else {
        stopTimer();
    }
}

void WallpaperManager::setIntervalMinutes(qint64 minutes)
{
    m_intervalMinutes = minutes;
    m_services.defaults->set(SettingsKeys::kIntervalMinutes, minutes);
    Q_EMIT intervalMinutesChanged();
    if (m_autoEnabled) {
        startTimer();
    }
}

const QDateTime &WallpaperManager::nextFireDate() const
{
    return m_schedule->nextFireDate();
}

void WallpaperManager::startTimer()
{
    if (m_autoEnabled) {
        m_schedule->start(m_intervalMinutes);
    } else {
        m_schedule->stop();
    }
}

void WallpaperManager::stopTimer()
{
    m_schedule->stop();
}

bool WallpaperManager::isHistoryRead() const
{
    return m_library->isRead();
}

const QStringList &WallpaperManager::history() const
{
    return m_library->history();
}

const QSet<QString> &WallpaperManager::favorites() const
{
    return m_library->favorites();
}

void WallpaperManager::reloadHistory()
{
    m_library->reload();
}

void WallpaperManager::refreshHistory()
{
    m_scope.start(m_library->refreshing());
}

std::vector<Album> WallpaperManager::albums() const
{
    const auto prompts = readTextMap(ImageStore::promptsPath());
    const auto dateOf = [](const QString &path) { return creationDate(path); };
    return albumsOf(history(), favorites(), prompts, dateOf);
}

} // namespace quorvane
