#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Unit/Storage/TroubleFixture.h"

#include <QDateTime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// The disk is full, files may not be read, names are no text: nothing that was there before may suffer.

namespace quorvane {

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

} // namespace quorvane
