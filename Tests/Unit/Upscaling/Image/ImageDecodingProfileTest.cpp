#include "Unit/Upscaling/Image/ImageDecodingFixture.h"

#include "Upscaling/Image/ImageDecoding.h"

#include <QColorSpace>
#include <QtEndian>

namespace quorvane {

namespace {

/// A header and no tags: enough to be recognised, nothing that could be converted with.
QByteArray bareProfile(const char *numbers)
{
    QByteArray profile(136, '\0');
    qToBigEndian<quint32>(136, profile.data());
    profile.replace(12, 12, QByteArray("mntr") + numbers + "XYZ ");
    profile.replace(36, 4, "acsp");
    profile.replace(68, 12, QByteArray("\x00\x00\xF6\xD6\x00\x01\x00\x00\x00\x00\xD3\x2D", 12));
    return profile;
}

QByteArray jpegWithProfile(const QByteArray &profile)
{
    return jpegWithSegment(quarters(), '\xE2', QByteArray("ICC_PROFILE\0\x01\x01", 14) + profile);
}

} // namespace

TEST(ImageDecoding, keepsTheColorProfile)
{
    QImage image = quarters();
    image.setColorSpace(QColorSpace::DisplayP3);
    for (const char *format : {"png", "jpg", "webp"}) {
        const QByteArray bytes = encoded(image, format);
        EXPECT_EQ(iccProfileOf(decodeImage(bytes)), QImage::fromData(bytes).colorSpace().iccProfile()) << format;
        EXPECT_EQ(QColorSpace::fromIccProfile(iccProfileOf(decodeImage(bytes))), QColorSpace(QColorSpace::DisplayP3));
    }
}

TEST(ImageDecoding, keepsAProfileThatQtCannotUse)
{
    const QByteArray profile = bareProfile("RGB ");
    EXPECT_EQ(iccProfileOf(decodeImage(jpegWithProfile(profile))), profile);
}

TEST(ImageDecoding, aProfileThatDoesNotDescribeRgbIsNotKept)
{
    EXPECT_EQ(iccProfileOf(decodeImage(jpegWithProfile(bareProfile("CMYK")))), QByteArray());
    EXPECT_EQ(iccProfileOf(decodeImage(jpegWithProfile(bareProfile("GRAY")))), QByteArray());
    EXPECT_EQ(iccProfileOf(decodeImage(jpegWithProfile("not a profile"))), QByteArray());
}

TEST(ImageDecoding, noProfileMeansSrgb)
{
    EXPECT_EQ(iccProfileOf(decodeImage(encoded(quarters()))), QByteArray());
    QImage image = quarters();
    image.setColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(iccProfileOf(decodeImage(encoded(image))), QByteArray());
}

} // namespace quorvane
