#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// The disk is full, files may not be read, names are no text: nothing that was there before may suffer.
namespace quorvane {

namespace {

/// What a library holds before the trouble comes.
void fillLibrary()
{
    EXPECT_TRUE(ImageStore::saveImage(u"old.png"_s, "picture"));
    EXPECT_TRUE(ImageStore::savePrompt(u"lake"_s, u"old.png"_s));
    EXPECT_TRUE(ImageStore::saveFavorite(u"old.png"_s));
    EXPECT_TRUE(ImageStore::saveVariantLink(u"old.png"_s, u"large.png"_s));
}

void expectLibraryAsFilled(const QString &library)
{
    EXPECT_EQ(QDir(library).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              (QStringList{u".lock"_s, u"favorites.json"_s, u"old.png"_s, u"prompts.json"_s, u"variants.json"_s}));
    EXPECT_EQ(contentOf(library + u"/old.png"_s), "picture");
    EXPECT_EQ(contentOf(library + u"/prompts.json"_s), "{\"old.png\":\"lake\"}");
    EXPECT_EQ(contentOf(library + u"/favorites.json"_s), "[\"old.png\"]");
    EXPECT_EQ(contentOf(library + u"/variants.json"_s), "{\"old.png\":\"large.png\"}");
}

/// More than any disk or limit of these tests holds.
const QString kLongText(200'000, 'x'_L1);

} // namespace

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

TEST(ImageStoreTrouble, aFolderThatMayNotBeWrittenChangesNothing)
{
    const PrivateHome home;
    fillLibrary();
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    {
        ASSERT_EQ(::chmod(QFile::encodeName(home.library()).constData(), 0555), 0);
        const AsOrdinaryUser user;
        EXPECT_FALSE(ImageStore::saveImage(u"new.png"_s, "x"));
        EXPECT_FALSE(ImageStore::savePrompt(u"p"_s, u"new.png"_s));
        EXPECT_FALSE(ImageStore::deleteImage(u"old.png"_s));
        EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + u"/old.png"_s});
    }
    expectLibraryAsFilled(home.library());
    ::chmod(QFile::encodeName(home.library()).constData(), 0755);
}

TEST(ImageStoreTrouble, aFolderThatCannotBeMadeIsAnEmptyLibrary)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.path() + u"/Pictures"_s));
    EXPECT_EQ(ImageStore::directory(), home.library());
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_FALSE(ImageStore::saveImage(u"a.png"_s, "x"));
    EXPECT_FALSE(ImageStore::savePrompt(u"p"_s, u"a.png"_s));
    EXPECT_FALSE(ImageStore::saveFavorite(u"a.png"_s));
    EXPECT_FALSE(ImageStore::deleteImage(u"/nowhere/a.png"_s));
    EXPECT_EQ(ImageStore::variant(u"a.png"_s), std::nullopt);
    EXPECT_EQ(contentOf(home.path() + u"/Pictures"_s), "x");
}

TEST(ImageStoreTrouble, aFolderThatCannotBeListedHasNoImages)
{
    const PrivateHome home;
    fillLibrary();
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    AsOrdinaryUser::giveAway(home.library());
    ASSERT_EQ(::chmod(QFile::encodeName(home.library()).constData(), 0300), 0);
    const AsOrdinaryUser user;
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
}

TEST(ImageStoreTrouble, imagesWhoseDatesCannotBeReadAreListed)
{
    const PrivateHome home;
    fillLibrary();
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    AsOrdinaryUser::giveAway(home.library());
    // Such a folder can be listed, but nothing can be learnt about its entries.
    ASSERT_EQ(::chmod(QFile::encodeName(home.library()).constData(), 0400), 0);
    const AsOrdinaryUser user;
    EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + u"/old.png"_s});
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

TEST(ImageStoreTrouble, namesThatAreNoTextDisturbNobody)
{
    const PrivateHome home;
    fillLibrary();
    const QByteArray odd = QFile::encodeName(home.library()) + "/\xff\xfe odd.png";
    const int descriptor = ::open(odd.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    ASSERT_GE(descriptor, 0);
    ::close(descriptor);
    EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + u"/old.png"_s});
    for (const QString &name :
         {QFile::decodeName("\xff\xfe odd.png"), QString(QChar(0xd800)) + u".png"_s, u"old.png"_s + QChar(u'\0')}) {
        EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, name));
        EXPECT_TRUE(ImageStore::saveFavorite(name));
        EXPECT_EQ(ImageStore::variant(name), std::nullopt);
        EXPECT_TRUE(ImageStore::deleteImage(home.library() + '/'_L1 + name));
    }
    EXPECT_EQ(::access(odd.constData(), F_OK), 0);
    ASSERT_EQ(::unlink(odd.constData()), 0);
    expectLibraryAsFilled(home.library());
}

TEST(ImageStoreTrouble, whatAKilledProcessLeftIsNeverListedAndCanBeRemoved)
{
    const PrivateHome home;
    fillLibrary();
    EXPECT_TRUE(Keychain::save(u"k1"_s, u"gemini"_s));
    const QString keys = home.path() + u"/Library/Application Support/Quorvane"_s;
    for (const QString &folder : {home.library(), keys}) {
        const QString path = folder + u"/.half.png.abcdef.quorvane-tmp"_s;
        ASSERT_TRUE(putFile(path));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addDays(-1), QFileDevice::FileModificationTime));
    }
    EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + u"/old.png"_s});
    ImageStore::removeAbandonedTemporaries();
    Keychain::removeAbandonedTemporaries();
    expectLibraryAsFilled(home.library());
    EXPECT_EQ(QDir(keys).entryList(QDir::Files | QDir::Hidden, QDir::Name), (QStringList{u".lock"_s, u"keys.json"_s}));
}

TEST(KeychainTrouble, aWriteThatFailsHalfWayKeepsTheKeys)
{
    const PrivateHome home;
    EXPECT_TRUE(Keychain::save(u"k1"_s, u"gemini"_s));
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(Keychain::save(kLongText, u"grok"_s));
        EXPECT_FALSE(Keychain::saveIfAbsent(kLongText, u"openai"_s));
    }
    EXPECT_EQ(Keychain::readAll(), (TextMap{{u"gemini"_s, u"k1"_s}}));
}

TEST(KeychainTrouble, anUnreadableFileIsEmpty)
{
    const PrivateHome home;
    EXPECT_TRUE(Keychain::save(u"k1"_s, u"gemini"_s));
    const QString folder = home.path() + u"/Library/Application Support/Quorvane"_s;
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    AsOrdinaryUser::giveAway(folder);
    ASSERT_EQ(::chmod(QFile::encodeName(folder + u"/keys.json"_s).constData(), 0), 0);
    const AsOrdinaryUser user;
    EXPECT_TRUE(Keychain::readAll().empty());
    EXPECT_FALSE(Keychain::load(u"gemini"_s));
}

TEST(KeychainTrouble, aFolderThatCannotBeMadeIsAnEmptyStore)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.path() + u"/Library"_s));
    EXPECT_FALSE(Keychain::save(u"k1"_s, u"gemini"_s));
    EXPECT_FALSE(Keychain::remove(u"gemini"_s));
    EXPECT_FALSE(Keychain::saveIfAbsent(u"k1"_s, u"gemini"_s));
    EXPECT_TRUE(Keychain::readAll().empty());
}

} // namespace quorvane
