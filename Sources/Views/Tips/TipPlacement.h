#pragma once

#include <QObject>
#include <QRectF>
#include <QtQml/qqml.h>

namespace quorvane {

/// Where a tool tip stands: above or below what it explains, where there is room, and over nothing that it does not
/// explain where that can be.
class TipPlacement : public QObject
{
    Q_OBJECT
    QML_ELEMENT

  public:
    using QObject::QObject;

    /// The tip's place in its window, in points: as high as it wants to be where it fits above or below, else as high
    /// as the larger of the two rooms. item is what it explains; wanted is the size that the whole text needs.
    [[nodiscard]] Q_INVOKABLE static QRectF place(const QRectF &item, const QSizeF &wanted, const QSizeF &window,
                                                  bool isMirrored);
};

} // namespace quorvane
