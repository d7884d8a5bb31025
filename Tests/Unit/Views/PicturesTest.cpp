// From a file in the library to the pixels of a tile.

#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Views/Gallery/PictureWidths.h"
#include "Views/Pictures/PictureDecoding.h"
#include "Views/Pictures/PictureUrl.h"
#include "Views/Pictures/ThumbnailCache.h"

#include <QImageWriter>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class Pictures : public testing::Test
{
  protected:
    [[nodiscard]] QString put(const QString &name, QSize size, QColor color = Qt::red,
                              QImageIOHandler::Transformations turned = QImageIOHandler::TransformationNone) const
    {
        const QString path = home.path() + '/'_L1 + name;
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        QImageWriter writer(path);
        writer.setTransformation(turned);
        EXPECT_TRUE(writer.write(image)) << writer.errorString().toStdString();
        return path;
    }

    PrivateHome home;
    ThumbnailCache cache;
};

TEST_F(Pictures, aThumbnailHas440PixelsOnItsLongSideAndASmallPictureStaysSmall)
{
    EXPECT_EQ(cache.thumbnail(put(u"wide.png"_s, {880, 200})).size(), QSize(440, 100));
    EXPECT_EQ(cache.thumbnail(put(u"high.jpg"_s, {200, 880})).size(), QSize(100, 440));
    EXPECT_EQ(cache.thumbnail(put(u"small.png"_s, {40, 20})).size(), QSize(40, 20));
    EXPECT_EQ(cache.thumbnail(put(u"thin.png"_s, {4400, 1})).size(), QSize(440, 1));
}

TEST_F(Pictures, theOrientationInTheFileIsApplied)
{
    const QString path = put(u"turned.jpg"_s, {880, 200}, Qt::red, QImageIOHandler::TransformationRotate90);
    EXPECT_EQ(shownSize(path), QSize(200, 880));
    EXPECT_EQ(cache.thumbnail(path).size(), QSize(100, 440));
}

TEST_F(Pictures, whatIsNoPictureHasNoThumbnailAndNoSize)
{
    const QString path = home.path() + u"/broken.png"_s;
    ASSERT_TRUE(putFile(path, "no picture"));
    EXPECT_TRUE(cache.thumbnail(path).isNull());
    EXPECT_TRUE(shownSize(path).isEmpty());
    EXPECT_TRUE(cache.thumbnail(home.path() + u"/gone.png"_s).isNull());
}

TEST_F(Pictures, theDiskKeepsAThumbnailUntilThePictureChanges)
{
    const QString path = put(u"one.png"_s, {880, 200}, Qt::red);
    (void)cache.thumbnail(path);
    const auto before = ThumbnailCache::fileFor(path);
    ASSERT_TRUE(before && QFileInfo::exists(*before));
    EXPECT_TRUE(before->startsWith(home.path() + u"/.cache/quorvane/thumbnails/"_s));
    // What another start finds there is used: this one is told from the picture by its colour.
    QImage(440, 100, QImage::Format_RGB32).save(*before, "PNG");
    QImage blue(440, 100, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    ASSERT_TRUE(blue.save(*before, "PNG"));
    ThumbnailCache later;
    EXPECT_EQ(later.thumbnail(path).pixelColor(5, 5), QColor(Qt::blue));
    (void)put(u"one.png"_s, {1000, 200}, Qt::green);
    EXPECT_NE(ThumbnailCache::fileFor(path), before);
    EXPECT_GT(later.thumbnail(path).pixelColor(5, 5).green(), 240);
}

TEST_F(Pictures, theMemoryIsBoundedInBytes)
{
    for (int number = 0; number < 80; ++number) {
        (void)cache.thumbnail(put(u"%1.png"_s.arg(number), {440, 440}));
        ASSERT_LE(cache.bytesInMemory(), ThumbnailCache::kMemoryBytes);
    }
    EXPECT_GT(cache.bytesInMemory(), ThumbnailCache::kMemoryBytes / 2);
}

TEST_F(Pictures, anAddressLeadsBackToItsPathWhateverTheNameHolds)
{
    for (const char *name : {"/a b.png", "/50% of #1?.png", "/a%20b.png", "/ünïcode-é.png", "/a-b/c-d.png"}) {
        const QString path = QString::fromUtf8(name);
        const QUrl address(thumbnailUrl(path));
        // As Qt Quick hands the address to the provider.
        const QString id = address.toString(QUrl::RemoveScheme | QUrl::RemoveAuthority).mid(1);
        EXPECT_EQ(pathFromPictureId(id), path) << name;
    }
}

TEST_F(Pictures, aWidthIsReadOnceForEachContentOfAFile)
{
    const QString path = put(u"one.png"_s, {880, 200});
    const QString turned = put(u"two.jpg"_s, {880, 200}, Qt::red, QImageIOHandler::TransformationRotate90);
    const auto entry = [](const QString &of) { return PictureEntry{of, fileStamp(of), {}, std::nullopt}; };
    const PictureWidths widths = readWidths({entry(path), entry(turned), entry(home.path() + u"/gone.png"_s)}, {});
    EXPECT_EQ(widths.value(path).pixels, 880);
    EXPECT_EQ(widths.value(turned).pixels, 200);
    EXPECT_EQ(widths.value(home.path() + u"/gone.png"_s).pixels, 0);
    // What is known already is not read again, and what is not asked for is forgotten.
    PictureWidths known = widths;
    known[path].pixels = 7;
    EXPECT_EQ(readWidths({entry(path)}, known), (PictureWidths{{path, {fileStamp(path), 7}}}));
    (void)put(u"one.png"_s, {88, 200}, Qt::blue);
    EXPECT_EQ(readWidths({entry(path)}, known).value(path).pixels, 88);
}

} // namespace quorvane
