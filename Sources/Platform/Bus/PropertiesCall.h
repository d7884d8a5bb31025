#pragma once

#include <QDBusMessage>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace quorvane {

/// Answers the reading half of org.freedesktop.DBus.Properties for an object with one interface. Nothing when the
/// message is no such call.
[[nodiscard]] std::optional<QDBusMessage> propertiesReply(const QDBusMessage &message, const QString &interface,
                                                          const QVariantMap &properties);

/// The PropertiesChanged signal.
[[nodiscard]] QDBusMessage propertiesChanged(const QString &path, const QString &interface, const QVariantMap &changed);

} // namespace quorvane
