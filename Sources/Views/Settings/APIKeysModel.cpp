#include "Views/Settings/APIKeysModel.h"

using namespace Qt::StringLiterals;

namespace quorvane {

APIKeyRow::APIKeyRow(const QString &section, const QString &label, const QString &providerId, const QString &help,
                     QObject *parent)
    : QObject(parent)
    , section(section)
    , label(label)
    , providerId(providerId)
    , help(help)
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
    m_saved = true;
    Q_EMIT changed();
}

void APIKeyRow::submit()
{
    if (canSave()) {
        m_stored = m_key;
        manager->saveKey(m_key, providerId);
        Q_EMIT changed();
    }
}

void APIKeyRow::remove()
{
    m_stored.reset();
    m_key.clear();
    m_saved = false;
    manager->removeKey(providerId);
    Q_EMIT changed();
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
    , m_rows{new APIKeyRow(tr("Gemini"), tr("Gemini"), u"gemini"_s, tr("Used for default generation and 4K upscaling."),
                           this),
             new APIKeyRow(tr("Grok (xAI)"), tr("Grok"), u"grok"_s, tr("Used when NSFW is enabled."), this),
             new APIKeyRow(tr("OpenAI"), tr("OpenAI"), u"openai"_s,
                           tr("Available as an override in Advanced settings."), this)}
    , m_reading([this](const TextMap &keys) {
        for (QObject *row : m_rows) {
            qobject_cast<APIKeyRow *>(row)->follow(keys);
        }
    })
{
}

void APIKeysModel::attach()
{
    for (QObject *row : m_rows) {
        qobject_cast<APIKeyRow *>(row)->manager = manager();
    }
    connect(manager(), &WallpaperManager::keysChanged, this, &APIKeysModel::refresh);
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
