#include "Unit/Storage/TroubleFixture.h"

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

// The disk is full, files may not be read, names are no text: nothing that was there before may suffer.

namespace quorvane {

TEST(ImageStoreTrouble, aWriteThatFailsHalfWayChangesNothing)
{
    const PrivateHome home;
    fillLibrary();
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(ImageStore::saveImage(u"new.png"_s, QByteArray(50'000, 'x')));
        EXPECT_FALSE(ImageStore::saveImage(u"old.png"_s, QByteArray(50'000, 'x')));
        EXPECT_FALSE(ImageStore::savePrompt(kLongText, u"new.png"_s));
        EXPECT_FALSE(ImageStore::saveFavorite(kLongText));
        EXPECT_FALSE(ImageStore::saveVariantLink(u"new.png"_s, kLongText));
    }
    expectLibraryAsFilled(home.library());
}

TEST(ImageStoreTrouble, aFullDiskChangesNothing)
{
    const PrivateHome home;
    const SmallDisk disk(home.library(), "size=64k");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no right to mount a small disk here; the limited file size stands in for it";
    }
    fillLibrary();
    EXPECT_FALSE(ImageStore::saveImage(u"new.png"_s, QByteArray(100'000, 'x')));
    EXPECT_FALSE(ImageStore::saveImage(u"old.png"_s, QByteArray(100'000, 'x')));
    EXPECT_FALSE(ImageStore::savePrompt(kLongText, u"new.png"_s));
    EXPECT_FALSE(ImageStore::saveFavorite(kLongText));
    EXPECT_FALSE(ImageStore::saveVariantLink(u"new.png"_s, kLongText));
    expectLibraryAsFilled(home.library());
}

TEST(ImageStoreTrouble, aDiskWithoutRoomForAnotherFileChangesNothing)
{
    const PrivateHome home;
    // One inode for the folder, one for the lock and four for the files of the library.
    const SmallDisk disk(home.library(), "size=1m,nr_inodes=7");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no right to mount a small disk here";
    }
    fillLibrary();
    ASSERT_TRUE(putFile(home.library() + u"/last"_s));
    EXPECT_FALSE(ImageStore::saveImage(u"new.png"_s, "x"));
    EXPECT_FALSE(ImageStore::savePrompt(u"p"_s, u"new.png"_s));
    ASSERT_TRUE(QFile::remove(home.library() + u"/last"_s));
    expectLibraryAsFilled(home.library());
}

TEST(ImageStoreTrouble, anUnreadableSideFileIsEmptyAndReplacedAtTheNextWrite)
{
    const PrivateHome home;
    fillLibrary();
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    AsOrdinaryUser::giveAway(home.library());
    const QString path = ImageStore::promptsPath();
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
    const AsOrdinaryUser user;
    EXPECT_TRUE(readTextMap(path).empty());
    EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"new.png"_s));
    EXPECT_EQ(readTextMap(path), (TextMap{{u"new.png"_s, u"p"_s}}));
}

TEST(ImageStoreTrouble, aFileThatCannotBeDeletedStillLosesItsEntries)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.library() + u"/full.png/inside.txt"_s));
    ASSERT_TRUE(putFile(home.library() + u"/small.png"_s));
    EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"full.png"_s));
    EXPECT_TRUE(ImageStore::saveVariantLink(u"small.png"_s, u"full.png"_s));
    EXPECT_FALSE(ImageStore::deleteImage(home.library() + u"/full.png"_s));
    EXPECT_TRUE(QFileInfo::exists(home.library() + u"/full.png/inside.txt"_s));
    EXPECT_FALSE(QFileInfo::exists(home.library() + u"/small.png"_s));
    EXPECT_TRUE(readTextMap(ImageStore::promptsPath()).empty());
    EXPECT_TRUE(readTextMap(ImageStore::variantsPath()).empty());
}

} // namespace quorvane
