#include "Unit/Storage/SideFileChangeFixture.h"

#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Support/FileMode.h"
#include "Support/Files.h"

#include <unistd.h>

using namespace Qt::StringLiterals;
// What was there stays: what is replaced without having been understood lies aside, and what was not kept is told.

namespace quorvane {

TEST_F(SideFileChangeTest, whatIsMalformedOrOfAnotherShapeLiesAside)
{
    const QByteArray contents[] = {"{\"a.png\":", "[\"a.png\"]", "{\"a.png\":5}", ""};
    int number = 0;
    for (const QByteArray &content : contents) {
        ASSERT_TRUE(putFile(ImageStore::promptsPath(), content));
        EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"b.png"_s));
        EXPECT_EQ(contentOf(ImageStore::promptsPath()), "{\"b.png\":\"p\"}");
        const QString aside = inLibrary(".prompts.json.unreadable-") + QString::number(++number);
        ASSERT_TRUE(QFileInfo::exists(aside));
        EXPECT_EQ(contentOf(aside), content);
        EXPECT_EQ(StorageNotices::take().size(), 1);
    }
    ASSERT_TRUE(putFile(ImageStore::favoritesPath(), "{}"));
    EXPECT_TRUE(ImageStore::saveFavorite(u"b.png"_s));
    EXPECT_EQ(contentOf(inLibrary(".favorites.json.unreadable-1")), "{}");
    EXPECT_EQ(ImageStore::allImages(), QStringList());
}

TEST_F(SideFileChangeTest, whatIsUnderstoodOrOnlyReadIsNotPutAside)
{
    EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"a.png"_s));
    EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"b.png"_s));
    ASSERT_TRUE(putFile(ImageStore::favoritesPath(), "odd") && putFile(ImageStore::variantsPath(), "odd"));
    EXPECT_TRUE(readTextList(ImageStore::favoritesPath()).isEmpty());
    EXPECT_TRUE(ImageStore::deleteImage(inLibrary("z.png")));
    EXPECT_EQ(contentOf(ImageStore::favoritesPath()), "odd") << "nothing in it named the picture";
    EXPECT_EQ(QDir(m_home.library()).entryList({u".*unreadable*"_s}, QDir::Files | QDir::Hidden), QStringList());
    EXPECT_EQ(StorageNotices::take(), QStringList());
}

TEST_F(SideFileChangeTest, keysThatCannotBeReadLieAsideForTheirOwner)
{
    EXPECT_TRUE(Keychain::save(u"k1"_s, u"gemini"_s));
    const QString file = keyFolder() + u"/keys.json"_s;
    ASSERT_TRUE(setMode(m_home.path(), 0755) && setMode(m_home.path() + u"/Library"_s, 0755));
    for (const QString &path :
         {m_home.path() + u"/Library/Application Support"_s, keyFolder(), file, keyFolder() + u"/.lock"_s}) {
        AsOrdinaryUser::giveAway(path);
    }
    ASSERT_TRUE(setMode(file, 0000));
    {
        const AsOrdinaryUser user;
        EXPECT_TRUE(Keychain::save(u"k2"_s, u"grok"_s));
        EXPECT_EQ(Keychain::readAll(), (TextMap{{u"grok"_s, u"k2"_s}}));
    }
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(modeOf(keyFolder() + u"/.keys.json.unreadable-1"_s), 0000U);
    const QStringList notices = StorageNotices::take();
    ASSERT_EQ(notices.size(), 1);
    EXPECT_FALSE(notices.first().contains(u"k1"_s));
}

TEST_F(SideFileChangeTest, aLargeFileIsReadAndALargerOneLiesAside)
{
    const QByteArray valid = "{\"a.png\":\"" + QByteArray(70 * 1024 * 1024, 'x') + "\"}";
    ASSERT_TRUE(putFile(ImageStore::promptsPath(), valid));
    EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"b.png"_s));
    EXPECT_EQ(readTextMap(ImageStore::promptsPath()).size(), 2U);

    // A hole: so large a file that takes no room.
    ASSERT_EQ(::truncate(QFile::encodeName(ImageStore::promptsPath()).constData(), kLargestSideFileBytes + 1), 0);
    EXPECT_TRUE(ImageStore::savePrompt(u"p"_s, u"c.png"_s));
    EXPECT_EQ(readTextMap(ImageStore::promptsPath()), (TextMap{{u"c.png"_s, u"p"_s}}));
    EXPECT_EQ(QFileInfo(inLibrary(".prompts.json.unreadable-1")).size(), kLargestSideFileBytes + 1);
}

} // namespace quorvane
