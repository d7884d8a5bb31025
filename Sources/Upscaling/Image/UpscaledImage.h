#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

/// What an upscaler gives: an encoded picture and the extension, without a dot, that its file gets.
struct UpscaledImage
{
    QByteArray bytes;
    QString extension;
};

} // namespace quorvane
