#pragma once

#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace quorvane {

/// Four quarters: red, green, blue and white in reading order.
inline QImage quarters()
{
    QImage image(16, 16, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, 8, 8, qRgb(255, 0, 0));
    painter.fillRect(8, 0, 8, 8, qRgb(0, 255, 0));
    painter.fillRect(0, 8, 8, 8, qRgb(0, 0, 255));
    painter.fillRect(8, 8, 8, 8, qRgb(255, 255, 255));
    return image;
}

/// The picture as a JPEG with one more segment behind its start marker.
inline QByteArray jpegWithSegment(const QImage &image, char marker, const QByteArray &content)
{
    QByteArray jpeg = encoded(image, "jpg");
    QByteArray segment("\xFF");
    segment.append(marker);
    segment.append(static_cast<char>((content.size() + 2) >> 8));
    segment.append(static_cast<char>(content.size() + 2));
    return jpeg.insert(2, segment + content);
}

} // namespace quorvane
