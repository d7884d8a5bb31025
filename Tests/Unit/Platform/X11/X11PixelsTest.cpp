#include "Platform/X11/X11Pixels.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

QImage onePixel(QRgb colour)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, colour);
    return image;
}

} // namespace

TEST(X11Pixels, arePackedAsTheServerWantsThem)
{
    struct Case
    {
        const char *what;
        X11PixelFormat format;
        const char *hex;
    };
    // The pixel is red 0x12, green 0x84, blue 0xff.
    const Case cases[] = {
        {"usual", {24, 32, 32, true, 0xff0000, 0xff00, 0xff}, "ff841200"},
        {"high byte first", {24, 32, 32, false, 0xff0000, 0xff00, 0xff}, "001284ff"},
        {"red in the low byte", {24, 32, 32, true, 0xff, 0xff00, 0xff0000}, "1284ff00"},
        {"with opacity", {32, 32, 32, true, 0xff0000, 0xff00, 0xff}, "ff8412ff"},
        {"three bytes, padded", {24, 24, 32, true, 0xff0000, 0xff00, 0xff}, "ff841200"},
        {"three bytes, not padded", {24, 24, 8, true, 0xff0000, 0xff00, 0xff}, "ff8412"},
        {"16 bits", {16, 16, 16, true, 0xf800, 0x07e0, 0x001f}, "3f14"},
        {"16 bits, high byte first", {16, 16, 16, false, 0xf800, 0x07e0, 0x001f}, "143f"},
        {"15 bits", {15, 16, 16, true, 0x7c00, 0x03e0, 0x001f}, "1f0a"},
        {"30 bits", {30, 32, 32, false, 0x3ff00000, 0xffc00, 0x3ff}, "04884bff"},
    };
    for (const Case &each : cases) {
        ASSERT_TRUE(each.format.isSupported()) << each.what;
        const QByteArray expected = QByteArray::fromHex(each.hex);
        EXPECT_EQ(packedRows(onePixel(qRgb(0x12, 0x84, 0xff)), 0, 1, each.format).toHex(), expected.toHex())
            << each.what;
    }
}

TEST(X11Pixels, rowsBeginAtThePaddingAndOnlyTheAskedOnesArePacked)
{
    QImage image(3, 4, QImage::Format_RGB32);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 3; ++x) {
            image.setPixel(x, y, qRgb(8 * x, 4 * y, 0));
        }
    }
    const X11PixelFormat format{16, 16, 32, false, 0xf800, 0x07e0, 0x001f};
    EXPECT_EQ(format.bytesPerRow(3), 8);
    EXPECT_EQ(packedRows(image, 1, 2, format).toHex(), "00200820102000000040084010400000");
}

TEST(X11Pixels, transparentPartsComeOutOverBlack)
{
    const X11PixelFormat format;
    const QImage half = onePixel(0).convertToFormat(QImage::Format_ARGB32);
    QImage white = half;
    white.setPixel(0, 0, qRgba(255, 255, 255, 51));
    const QImage premultiplied = white.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(packedRows(premultiplied, 0, 1, format).toHex(), "33333300");
}

TEST(X11Pixels, otherKindsOfColoursAreNotSupported)
{
    EXPECT_FALSE((X11PixelFormat{8, 8, 32, true, 0, 0, 0}.isSupported())) << "a palette";
    EXPECT_FALSE((X11PixelFormat{24, 0, 32, true, 0xff0000, 0xff00, 0xff}.isSupported())) << "no format";
    EXPECT_FALSE((X11PixelFormat{24, 32, 32, true, 0xf0f000, 0xff00, 0xff}.isSupported())) << "bits apart";
}

} // namespace quorvane
