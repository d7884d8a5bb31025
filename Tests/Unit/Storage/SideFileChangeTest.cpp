#include "Platform/Files/StorageNotices.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Support/FileMode.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// What was there stays: what is replaced without having been understood lies aside, and what was not kept is told.
namespace quorvane {

namespace {

class SideFileChangeTest : public testing::Test
{
  protected:
    SideFileChangeTest()
    {
        (void)StorageNotices::take(); // Those of other tests.
    }

    [[nodiscard]] QString keyFolder() const { return m_home.path() + u"/Library/Application Support/Quorvane"_s; }
    [[nodiscard]] QString inLibrary(const char *name) const
    {
        return m_home.library() + '/'_L1 + QString::fromUtf8(name);
    }

    PrivateHome m_home;
};

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
