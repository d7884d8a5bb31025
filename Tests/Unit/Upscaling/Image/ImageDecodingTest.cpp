#include "Unit/Upscaling/Image/ImageDecodingFixture.h"

#include "Platform/Pictures/PictureFile.h"
#include "Upscaling/Image/ImageDecoding.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>

namespace quorvane {

namespace {

const std::vector<QRgb> kQuarters{qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255), qRgb(255, 255, 255)};

QByteArray picture(const char *name)
{
    QFile file(QStringLiteral(QUORVANE_TEST_DATA "/pictures/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Whether the quarters' middles have these colours; lossy formats and half transparency need some tolerance.
testing::AssertionResult hasQuarters(const QByteArray &bytes, const std::vector<QRgb> &wanted, int tolerance,
                                     QImage::Format format = QImage::Format_RGBX8888)
{
    const QImage image = decodeImage(bytes);
    if (image.size() != QSize(16, 16) || image.format() != format) {
        return testing::AssertionFailure() << image.width() << " x " << image.height() << ", format " << image.format();
    }
    const QPoint middles[] = {{4, 4}, {12, 4}, {4, 12}, {12, 12}};
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        const QRgb found = image.pixel(middles[index]);
        const auto far = [&](int a, int b) { return std::abs(a - b) > tolerance; };
        if (far(qRed(found), qRed(wanted[index])) || far(qGreen(found), qGreen(wanted[index])) ||
            far(qBlue(found), qBlue(wanted[index])) || far(qAlpha(found), qAlpha(wanted[index]))) {
            return testing::AssertionFailure() << "quarter " << index << " is " << std::hex << found;
        }
    }
    return testing::AssertionSuccess();
}

/// What the quarters become in grey.
const std::vector<QRgb> kGreys = [] {
    const QImage grey = quarters().convertToFormat(QImage::Format_Grayscale8);
    return std::vector<QRgb>{grey.pixel(4, 4), grey.pixel(12, 4), grey.pixel(4, 12), grey.pixel(12, 12)};
}();

QByteArray exifWithOrientation(char orientation)
{
    QByteArray exif("Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0?\0\0\0\0\0\0\0", 32);
    exif[24] = orientation;
    return exif;
}

} // namespace

TEST(ImageDecoding, readsEveryKindOfPng)
{
    const QImage image = quarters();
    EXPECT_TRUE(hasQuarters(encoded(image), kQuarters, 0));
    EXPECT_TRUE(hasQuarters(encoded(image.convertToFormat(QImage::Format_Indexed8)), kQuarters, 0));
    EXPECT_TRUE(hasQuarters(encoded(image.convertToFormat(QImage::Format_RGBX64)), kQuarters, 0));
    EXPECT_TRUE(hasQuarters(encoded(image.convertToFormat(QImage::Format_Grayscale8)), kGreys, 1));
    EXPECT_TRUE(hasQuarters(encoded(image.convertToFormat(QImage::Format_Grayscale16)), kGreys, 1));
    EXPECT_TRUE(hasQuarters(picture("interlaced.png"), kQuarters, 0));
    const std::vector<QRgb> greyAndAlpha{qRgb(0, 0, 0), qRgb(255, 255, 255), qRgba(128, 128, 128, 128), 0};
    EXPECT_TRUE(hasQuarters(picture("grey-alpha.png"), greyAndAlpha, 1, QImage::Format_RGBA8888_Premultiplied));
}

TEST(ImageDecoding, keepsTransparencyMultipliedIntoTheColors)
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(qRgba(200, 100, 0, 51));
    const QImage result = decodeImage(encoded(image));
    ASSERT_EQ(result.format(), QImage::Format_RGBA8888_Premultiplied);
    const uchar *pixel = result.constScanLine(3) + 4 * 3;
    EXPECT_EQ(std::vector<int>(pixel, pixel + 4), (std::vector<int>{40, 20, 0, 51}));

    QImage palette(16, 16, QImage::Format_Indexed8);
    palette.setColorTable({qRgba(0, 0, 0, 0), qRgba(255, 0, 0, 255)});
    palette.fill(0);
    EXPECT_EQ(qAlpha(decodeImage(encoded(palette)).pixel(1, 1)), 0);
    EXPECT_EQ(qAlpha(decodeImage(encoded(image.convertToFormat(QImage::Format_RGBA64))).pixel(1, 1)), 51);
}

TEST(ImageDecoding, anAlphaChannelThatHidesNothingIsDropped)
{
    EXPECT_TRUE(hasQuarters(encoded(quarters().convertToFormat(QImage::Format_ARGB32)), kQuarters, 0));
}

TEST(ImageDecoding, readsEveryKindOfJpeg)
{
    EXPECT_TRUE(hasQuarters(encoded(quarters(), "jpg"), kQuarters, 12));
    EXPECT_TRUE(hasQuarters(encoded(quarters().convertToFormat(QImage::Format_Grayscale8), "jpg"), kGreys, 12));
    EXPECT_TRUE(hasQuarters(picture("cmyk.jpg"), kQuarters, 12));

    QByteArray progressive;
    QBuffer buffer(&progressive);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    writer.setQuality(95);
    ASSERT_TRUE(writer.write(quarters()));
    ASSERT_TRUE(progressive.contains("\xFF\xC2"));
    EXPECT_TRUE(hasQuarters(progressive, kQuarters, 12));
}

TEST(ImageDecoding, turnsAPhotographUpright)
{
    // Orientation 6: the first row of the file is the right edge of the picture.
    const std::vector<QRgb> turned{kQuarters[2], kQuarters[0], kQuarters[3], kQuarters[1]};
    EXPECT_TRUE(hasQuarters(jpegWithSegment(quarters(), '\xE1', exifWithOrientation(6)), turned, 12));
}

TEST(ImageDecoding, readsWebpAndTheFirstFrameOfAnAnimation)
{
    EXPECT_TRUE(hasQuarters(encoded(quarters(), "webp"), kQuarters, 12));
    const QByteArray animation = picture("animated.webp");
    ASSERT_TRUE(animation.contains("ANMF"));
    EXPECT_TRUE(hasQuarters(animation, kQuarters, 0));
}

TEST(ImageDecoding, whatIsNoPictureGivesNone)
{
    const QByteArray whole = encoded(quarters());
    EXPECT_TRUE(decodeImage({}).isNull());
    EXPECT_TRUE(decodeImage("GIF").isNull());
    EXPECT_TRUE(decodeImage("{\"error\": \"no picture\"}").isNull());
    EXPECT_TRUE(decodeImage(whole.left(whole.size() / 2)).isNull());
}

TEST(ImageDecoding, readsLargerPicturesThanQtDoesByDefault)
{
    QImage image(10000, 8000, QImage::Format_Grayscale8);
    image.fill(77);
    EXPECT_EQ(decodeImage(encoded(image)).size(), image.size());
}

TEST(ImageDecoding, theLimitIsRaisedButNotGone)
{
    // A hundred thousand pixels square, in a few bytes of text.
    const QByteArray header = QByteArray::fromHex("89504e470d0a1a0a0000000d49484452000186a0000186a00802000000");
    EXPECT_TRUE(decodeImage(header).isNull());
    EXPECT_EQ(QImageReader::allocationLimit(), kLargestDecodedMebibytes);
}

} // namespace quorvane
