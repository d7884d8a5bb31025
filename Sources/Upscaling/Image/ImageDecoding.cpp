#include "Upscaling/Image/ImageDecoding.h"

#include "Platform/Pictures/PictureFile.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QtEndian>

namespace quorvane {

namespace {

/// Whether the bytes are an ICC profile for RGB: its header tells its own size, its kind of numbers and a signature.
bool describesRgb(const QByteArray &profile)
{
    constexpr qsizetype kHeaderAndTagCount = 132;
    return profile.size() >= kHeaderAndTagCount && qFromBigEndian<quint32>(profile.constData()) == profile.size() &&
           profile.mid(16, 4) == "RGB " && profile.mid(36, 4) == "acsp";
}

bool everyPixelIsOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const uchar *row = image.constScanLine(y);
        uchar all = 0xFF;
        for (qsizetype x = 0; x < image.width(); ++x) {
            all &= row[4 * x + 3];
        }
        if (all != 0xFF) {
            return false;
        }
    }
    return true;
}

/// After this the picture's numbers are RGB: a grey profile cannot stand in an RGB picture, so its meaning is worked
/// into the pixels; a CMYK profile lost its sense when the decoder turned the inks into RGB.
void settleColorSpace(QImage &image)
{
    const QByteArray profile = image.colorSpace().iccProfile();
    if (profile.isEmpty() || describesRgb(profile)) {
        return;
    }
    if (image.colorSpace().isValid()) {
        image.convertToColorSpace(QColorSpace::SRgb);
    }
    image.setColorSpace(QColorSpace());
}

} // namespace

QImage decodeImage(QByteArray bytes)
{
    allowLargePictures();
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    if (image.isNull()) {
        return {};
    }
    if (!image.hasAlphaChannel()) {
        image.convertTo(QImage::Format_RGBX8888);
        settleColorSpace(image);
        return image;
    }
    image.convertTo(QImage::Format_RGBA8888_Premultiplied);
    settleColorSpace(image);
    if (everyPixelIsOpaque(image)) {
        image.reinterpretAsFormat(QImage::Format_RGBX8888);
    }
    return image;
}

QByteArray iccProfileOf(const QImage &image)
{
    const QColorSpace space = image.colorSpace();
    const QByteArray profile = space.iccProfile();
    return space == QColorSpace(QColorSpace::SRgb) || !describesRgb(profile) ? QByteArray() : profile;
}

} // namespace quorvane
