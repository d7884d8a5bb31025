#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

/// text as one line that does nothing but be read. A terminal obeys control characters, and a line break or a turned
/// writing direction forges words of ours; all of these come out as visible signs (␛, ␊, �). For texts that others
/// wrote: a service's words, file names, what another program says.
[[nodiscard]] QString printable(QString text);

/// text with a visible sign for each U+0000, at which the bus and C would end it.
[[nodiscard]] QString withVisibleNulls(QString text);

/// JSON text whose strings have the same characters as escapes: whoever reads the JSON gets the same values, and a
/// terminal obeys none of them.
[[nodiscard]] QByteArray printableJson(const QByteArray &json);

} // namespace quorvane
