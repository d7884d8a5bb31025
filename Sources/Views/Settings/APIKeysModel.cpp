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
        manager->saveKey(m_key, providerId);
    }
}

void APIKeyRow::remove()
{
    manager->removeKey(providerId);
    m_key.clear();
    m_saved = false;
    Q_EMIT changed();
}

void APIKeyRow::load(const TextMap &keys)
{
    const auto stored = keys.find(providerId);
    if (stored != keys.end()) {
        m_key = stored->second;
        m_saved = true;
        Q_EMIT changed();
    }
}

APIKeysModel::APIKeysModel(QObject *parent)
    : ViewModel(parent)
    , m_rows{new APIKeyRow(tr("Gemini"), tr("Gemini"), u"gemini"_s, tr("Used for default generation and 4K upscaling."),
                           this),
             new APIKeyRow(tr("Grok (xAI)"), tr("Grok"), u"grok"_s, tr("Used when NSFW is enabled."), this),
             new APIKeyRow(tr("OpenAI"), tr("OpenAI"), u"openai"_s,
                           tr("Available as an override in Advanced settings."), this)}
{
}

void APIKeysModel::attach()
{
    for (QObject *row : m_rows) {
        qobject_cast<APIKeyRow *>(row)->manager = manager();
    }
}

void APIKeysModel::loadAllKeys()
{
    for (QObject *row : m_rows) {
        qobject_cast<APIKeyRow *>(row)->load(WallpaperManager::storedKeys());
    }
}

} // namespace quorvane
