#include "Platform/Files/UserDefaults.h"

#include "Platform/Files/Paths.h"

using namespace Qt::StringLiterals;

namespace quorvane {

UserDefaults::UserDefaults(const QString &path)
    : m_settings(path, QSettings::IniFormat)
{
}

QString UserDefaults::defaultPath()
{
    return Paths::configHome() + u"/Quorvane/Quorvane.conf"_s;
}

std::optional<QString> UserDefaults::text(const QString &key) const
{
    const QVariant value = m_settings.value(key);
    if (!value.isValid()) {
        return std::nullopt;
    }
    // A hand-written line with commas reads as a list; the user meant the text.
    if (value.typeId() == QMetaType::QStringList) {
        return value.toStringList().join(u", "_s);
    }
    return value.toString();
}

bool UserDefaults::boolean(const QString &key) const
{
    return m_settings.value(key).toBool();
}

qint64 UserDefaults::integer(const QString &key) const
{
    return m_settings.value(key).toLongLong();
}

bool UserDefaults::contains(const QString &key) const
{
    return m_settings.contains(key);
}

void UserDefaults::set(const QString &key, const QVariant &value)
{
    m_settings.setValue(key, value);
}

void UserDefaults::remove(const QString &key)
{
    m_settings.remove(key);
}

bool UserDefaults::sync()
{
    m_settings.sync();
    return m_settings.status() == QSettings::NoError;
}

} // namespace quorvane
