#include "Manager/Library/GalleryListing.h"

#include "Storage/ImageStore.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class GalleryListingTest : public testing::Test
{
  protected:
    [[nodiscard]] static QString put(const char *name, const QByteArray &bytes = "image")
    {
        return valueOf(ImageStore::saveImage(QString::fromLatin1(name), bytes));
    }

    PrivateHome home;
};

TEST_F(GalleryListingTest, itHasTheAlbumsAndThePicturesOfTheOneAskedFor)
{
    const QString lake = put("lake.png");
    const QString other = put("other.png");
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, lake));
    const GalleryListing listing = readGallery({other, lake}, {}, u"a lake"_s);
    ASSERT_EQ(listing.albums.size(), 2U);
    ASSERT_TRUE(listing.pictures && listing.pictures->size() == 1);
    const PictureEntry &entry = listing.pictures->front();
    EXPECT_EQ(entry.path, lake);
    EXPECT_EQ(entry.prompt, u"a lake"_s);
    EXPECT_EQ(entry.stamp.sizeBytes, 5);
    EXPECT_TRUE(entry.created.has_value());
}

TEST_F(GalleryListingTest, anAlbumThatIsGoneAndNoAlbumHaveNoPictures)
{
    const QString lake = put("lake.png");
    EXPECT_FALSE(readGallery({lake}, {}, u"a hill"_s).pictures);
    EXPECT_FALSE(readGallery({lake}, {}, std::nullopt).pictures);
}

TEST_F(GalleryListingTest, aPictureThatIsGoneIsListedWithoutItsFile)
{
    const QString path = home.library() + u"/gone.png"_s;
    const GalleryListing listing = readGallery({path}, {}, u"Uncategorized"_s);
    ASSERT_TRUE(listing.pictures && listing.pictures->size() == 1);
    EXPECT_EQ(listing.pictures->front().stamp, FileStamp());
    EXPECT_EQ(listing.pictures->front().created, std::nullopt);
}

TEST_F(GalleryListingTest, anotherContentIsAnotherStamp)
{
    const QString path = put("one.png");
    const FileStamp before = fileStamp(path);
    (void)put("one.png", "longer image");
    EXPECT_NE(fileStamp(path), before);
}

TEST_F(GalleryListingTest, whatWasAwayForAWhileIsReadAgain)
{
    const QString path = put("one.png");
    const FileStamp before = fileStamp(path);
    // The file system's clock is coarse.
    EXPECT_TRUE(waitFor([&] {
        EXPECT_TRUE(QFile::rename(path, path + u".away"_s) && QFile::rename(path + u".away"_s, path));
        return fileStamp(path) != before;
    }));
}

} // namespace quorvane
