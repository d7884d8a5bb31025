#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace quorvane::Reports {

/// text, or null where it is empty: how JSON says that there is none.
[[nodiscard]] inline QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

/// The texts of a list; what is no text is an empty one.
[[nodiscard]] inline QStringList texts(const QJsonArray &list)
{
    QStringList result;
    for (const QJsonValue &value : list) {
        result.append(value.toString());
    }
    return result;
}

} // namespace quorvane::Reports
