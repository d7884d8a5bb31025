#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace quorvane {

/// A picture this wide, in pixels, is 4K.
inline constexpr int kFourKWidth = 3840;

/// The size at which the picture at path is seen, its orientation applied, from its header alone; empty when it cannot
/// be read. Any thread.
[[nodiscard]] QSize shownSize(const QString &path);

/// The picture at path within bounds, its orientation applied, never larger than it is; null when it cannot be read.
/// Formats that can are decoded at the smaller size straight away. Any thread.
[[nodiscard]] QImage decodedWithin(const QString &path, QSize bounds);

} // namespace quorvane
