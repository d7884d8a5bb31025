#pragma once

#include <QLatin1String>
#include <QQuickImageProvider>

namespace quorvane {

/// Gives QML the shadow of a rectangle with round corners, hollow where the rectangle is, to be stretched in the
/// middle: "image://shadow/RADIUS/REACH/PERCENT", with the corner's radius and the reach in points, and how dark it is
/// at its darkest. Every corner takes RADIUS + REACH of the picture.
class ShadowProvider : public QQuickImageProvider
{
  public:
    static constexpr QLatin1String kName{"shadow"};

    ShadowProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace quorvane
