#include "Unit/Storage/SideFileChangeFixture.h"

#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Support/FileMode.h"
#include "Support/Files.h"

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
// What was there stays: what is replaced without having been understood lies aside, and what was not kept is told.

namespace quorvane {

namespace {

/// While the object lives no file can be opened.
class NoDescriptors
{
  public:
    NoDescriptors()
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit none{0, m_before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptors() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

  private:
    rlimit m_before{};
};

} // namespace

TEST_F(SideFileChangeTest, aMomentWithoutDescriptorsLosesNoKey)
{
    EXPECT_TRUE(Keychain::save(u"k1"_s, u"gemini"_s));
    {
        const NoDescriptors none;
        const Result<> saved = Keychain::save(u"k2"_s, u"grok"_s);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.failure().words, u"keys.json could not be written: Too many open files"_s);
        EXPECT_FALSE(Keychain::remove(u"gemini"_s));
        EXPECT_FALSE(Keychain::saveIfAbsent(u"k3"_s, u"openai"_s));
    }
    EXPECT_EQ(Keychain::readAll(), (TextMap{{u"gemini"_s, u"k1"_s}}));
    EXPECT_EQ(QDir(keyFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              (QStringList{u".lock"_s, u"keys.json"_s}));
    EXPECT_EQ(StorageNotices::take(), QStringList());
}

TEST_F(SideFileChangeTest, linksToSideFilesAndKeysStayAndTheirFilesKeepTheirModes)
{
    const QString favorites = m_home.path() + u"/dotfiles/favorites.json"_s;
    const QString keys = m_home.path() + u"/dotfiles/keys.json"_s;
    ASSERT_TRUE(putFile(favorites, "[\"a.png\"]") && putFile(keys, "{\"gemini\":\"k1\"}"));
    ASSERT_TRUE(setMode(favorites, 0600) && setMode(keys, 0644));
    ASSERT_TRUE(QDir().mkpath(keyFolder()));
    ASSERT_TRUE(QFile::link(favorites, ImageStore::favoritesPath()) &&
                QFile::link(keys, keyFolder() + u"/keys.json"_s));

    EXPECT_TRUE(ImageStore::saveFavorite(u"b.png"_s));
    EXPECT_TRUE(Keychain::save(u"k2"_s, u"gemini"_s));
    EXPECT_TRUE(QFileInfo(ImageStore::favoritesPath()).isSymLink());
    EXPECT_TRUE(QFileInfo(keyFolder() + u"/keys.json"_s).isSymLink());
    EXPECT_EQ(contentOf(favorites), "[\"a.png\",\"b.png\"]");
    EXPECT_EQ(contentOf(keys), "{\"gemini\":\"k2\"}");
    EXPECT_EQ(modeOf(favorites), 0600U);
    EXPECT_EQ(modeOf(keys), 0600U);

    // What a killed process leaves lies beside the files.
    ASSERT_TRUE(putFile(m_home.path() + u"/dotfiles/.keys.json.abcdef.quorvane-tmp"_s));
    ASSERT_TRUE(putFile(m_home.path() + u"/dotfiles/.favorites.json.abcdef.quorvane-tmp"_s));
    Keychain::removeAbandonedTemporaries();
    ImageStore::removeAbandonedTemporaries();
    EXPECT_EQ(QDir(m_home.path() + u"/dotfiles"_s).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              (QStringList{u"favorites.json"_s, u"keys.json"_s}));
}

} // namespace quorvane
