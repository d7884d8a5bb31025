#include "Views/Settings/APIKeysModel.h"

#include "Manager/Undo/Undo.h"

#include <utility>

namespace quorvane {

namespace {

/// A key that was removed can be brought back; one that could not be, because the disk was full, again.
Undo::Step stepBack(WallpaperManager *manager, const QString &providerId, const QString &key)
{
    const auto bringBack = [=] {
        if (WallpaperManager::storedKeyIds().contains(providerId)) {
            return;
        }
        if (const Result<> kept = manager->saveKey(key, providerId); !kept) {
            manager->tell({kept.failure().words});
            manager->keyRemovals().offerAgain(stepBack(manager, providerId, key));
        }
    };
    return {bringBack, [] {}};
}

} // namespace

APIKeyRow::APIKeyRow(const ImageProvider &provider, WallpaperManager *manager, QObject *parent)
    : QObject(parent)
    , section(provider.keyTitle())
    , label(provider.name())
    , providerId(provider.id())
    , help(provider.keyUse())
    , m_manager(manager)
{
}

QString APIKeyRow::placeholder() const
{
    return tr("%1 API Key").arg(label);
}

void APIKeyRow::setKey(const QString &key)
{
    if (key != m_key) {
        m_key = key;
        Q_EMIT changed();
    }
}

QString APIKeyRow::saveLabel() const
{
    return m_saved ? tr("Update") : tr("Save");
}

void APIKeyRow::save()
{
    if (!canSave()) {
        return;
    }
    submit();
    m_saved = m_saved || m_problem.isEmpty();
    Q_EMIT changed();
}

void APIKeyRow::submit()
{
    if (canSave()) {
        const std::optional<QString> before = std::exchange(m_stored, m_key);
        if (!isKept(m_manager->saveKey(m_key, providerId))) {
            m_stored = before;
        }
        Q_EMIT changed();
    }
}

void APIKeyRow::remove()
{
    const TextMap keys = WallpaperManager::storedKeys();
    if (isKept(m_manager->removeKey(providerId))) {
        if (const auto key = keys.find(providerId); key != keys.end()) {
            m_manager->keyRemovals().offer(stepBack(m_manager, providerId, key->second));
        }
        m_stored.reset();
        m_key.clear();
        m_saved = false;
    }
    Q_EMIT changed();
}

bool APIKeyRow::isKept(const Result<> &result)
{
    m_problem = result ? QString() : result.failure().words;
    return m_problem.isEmpty();
}

void APIKeyRow::load(const TextMap &keys)
{
    follow(keys);
    if (m_stored && !m_saved) {
        m_saved = true;
        Q_EMIT changed();
    }
}

void APIKeyRow::follow(const TextMap &keys)
{
    const auto found = keys.find(providerId);
    const auto stored = found != keys.end() ? std::optional(found->second) : std::nullopt;
    if (stored == m_stored) {
        return; // Return in the field stores a key without calling it saved.
    }
    const bool wasUnsaved = unsaved();
    m_stored = stored;
    m_saved = stored.has_value();
    if (!wasUnsaved) {
        m_key = stored.value_or(QString());
    }
    Q_EMIT changed();
}

APIKeysModel::APIKeysModel(QObject *parent)
    : ViewModel(parent)
    , m_reading([this](const TextMap &keys) {
        for (QObject *row : m_rows) {
            qobject_cast<APIKeyRow *>(row)->follow(keys);
        }
    })
{
}

void APIKeysModel::attach()
{
    for (const auto &provider : manager()->providers()) {
        m_rows.append(new APIKeyRow(*provider, manager(), this));
    }
    connect(manager(), &WallpaperManager::keysChanged, this, &APIKeysModel::refresh);
    connect(&manager()->keyRemovals(), &Undo::isOfferedChanged, this, &APIKeysModel::canUndoChanged);
}

bool APIKeysModel::canUndo() const
{
    return manager()->keyRemovals().isOffered();
}

void APIKeysModel::undo()
{
    manager()->keyRemovals().undo();
}

void APIKeysModel::refresh()
{
    m_reading.ask(&WallpaperManager::storedKeys);
}

void APIKeysModel::loadAllKeys()
{
    for (QObject *row : m_rows) {
        qobject_cast<APIKeyRow *>(row)->load(WallpaperManager::storedKeys());
    }
}

} // namespace quorvane
