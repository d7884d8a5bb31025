#pragma once

#include <QByteArray>
#include <QImage>

namespace quorvane {

/// image as a file in format, "png" or "jpg". The same image gives the same bytes on every run.
[[nodiscard]] QByteArray encodePicture(const QImage &image, const char *format);

} // namespace quorvane
