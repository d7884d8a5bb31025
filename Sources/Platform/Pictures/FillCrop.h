#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

namespace quorvane {

/// The part of a source picture that fills a target of another shape: as large as possible, of the target's shape (to
/// half a source pixel), around the source's centre. Empty when either size is empty.
[[nodiscard]] QRect fillRectangle(QSize source, QSize target);

/// The source cropped like that and scaled smoothly to exactly target. Null when either is empty, or when there is not
/// enough memory.
[[nodiscard]] QImage filledPicture(const QImage &source, QSize target);

} // namespace quorvane
