#include "Platform/Pictures/PictureFile.h"

#include "Support/PrivateHome.h"
#include "Support/Results.h"

#include <QFile>
#include <QImageWriter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString write(const PrivateHome &home, const char *name, const QByteArray &bytes)
{
    const QString path = home.path() + '/'_L1 + QString::fromUtf8(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return path;
}

/// No size at all where it could not be read.
QSize sizeOf(const Result<PictureFile> &file)
{
    return file ? file->image.size() : QSize();
}

} // namespace

TEST(PictureFile, theContentDecidesTheFormatNotTheName)
{
    const PrivateHome home;
    const QString path = home.path() + u"/picture.jpg"_s;
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(qRgb(1, 2, 3));
    ASSERT_TRUE(image.save(path, "png"));
    const Result<PictureFile> file = readPicture(path);
    ASSERT_TRUE(file) << file.failure().words.toStdString();
    EXPECT_EQ(file->format, "png");
    EXPECT_EQ(file->image.size(), QSize(30, 20));
    EXPECT_EQ(file->image.pixel(29, 19), qRgb(1, 2, 3));
}

TEST(PictureFile, aReducedPictureKeepsItsShapeAndASmallOneItsSize)
{
    const PrivateHome home;
    const QString path = home.path() + u"/picture.png"_s;
    QImage image(1000, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(path));
    EXPECT_EQ(sizeOf(readPicture(path, QSize(100, 100))), QSize(100, 1));
    EXPECT_EQ(sizeOf(readPicture(path, QSize(50, 50))), QSize(50, 1)) << "never without height";
    EXPECT_EQ(sizeOf(readPicture(path, QSize(2000, 2000))), QSize(1000, 10));
}

TEST(PictureFile, whatIsNoWholePictureIsAnError)
{
    const PrivateHome home;
    const QString path = home.path() + u"/picture.png"_s;
    QImage image(64, 64, QImage::Format_RGB32);
    for (int i = 0; i < 64 * 64; ++i) {
        image.setPixel(i % 64, i / 64, qRgb(i * 7919 % 256, i * 31 % 256, i * 17 % 256));
    }
    ASSERT_TRUE(image.save(path));
    QFile whole(path);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QStringList paths{home.path(), home.path() + u"/none.png"_s, write(home, "empty.png", ""),
                            write(home, "text.png", "<html>not a picture</html>"),
                            write(home, "half.png", bytes.left(bytes.size() / 2))};
    for (const QString &each : paths) {
        for (const QSize atMost : {QSize(), QSize(16, 16)}) {
            const QString words = wordsOf(readPicture(each, atMost));
            EXPECT_TRUE(words.startsWith(u"The picture cannot be read: "_s)) << each.toStdString();
        }
    }
}

TEST(PictureFile, picturesAboveQtsOwnMemoryLimitAreRead)
{
    const PrivateHome home;
    const QString path = home.path() + u"/large.png"_s;
    QImage image(8200, 8400, QImage::Format_Grayscale8); // Counted with 4 bytes a pixel: 263 MiB; Qt stops at 256.
    image.fill(Qt::white);
    QImageWriter writer(path, "png");
    writer.setCompression(10);
    ASSERT_TRUE(writer.write(image));
    image = {};
    EXPECT_EQ(sizeOf(readPicture(path)), QSize(8200, 8400));
}

} // namespace quorvane
