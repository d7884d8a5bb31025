#include "Unit/Storage/TroubleFixture.h"

#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

// The disk is full, files may not be read, names are no text: nothing that was there before may suffer.

namespace quorvane {

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
