#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// How a text stands behind the "=" of a settings file, as QSettings has it: quotes, escapes, and marks for other
/// types.
namespace quorvane::SettingsValue {

/// The text that bytes stand for, a list as one text with commas; nothing where they stand for something else.
[[nodiscard]] std::optional<QString> decoded(QByteArrayView bytes);

/// Bytes without a line's end that stand for text.
[[nodiscard]] QByteArray encoded(const QString &value);

} // namespace quorvane::SettingsValue
