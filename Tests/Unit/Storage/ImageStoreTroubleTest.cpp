#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

// The disk is full, files may not be read, names are no text: nothing that was there before may suffer.
namespace quorvane {

namespace {

/// While the object lives no file can grow beyond bytes: a write fails half-way as it does on a full disk.
class FileSizeLimit
{
  public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        (void)std::signal(SIGXFSZ, m_handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

  private:
    rlimit m_before{};
    void (*m_handlerBefore)(int);
};

/// Mounts a disk of its own at path, as small as options say, when the test may do so.
class SmallDisk
{
  public:
    SmallDisk(const QString &path, const char *options)
        : m_path(QFile::encodeName(path))
        , m_mounted(QDir().mkpath(path) && ::mount("tmpfs", m_path.constData(), "tmpfs", 0, options) == 0)
    {
    }
    ~SmallDisk()
    {
        if (m_mounted) {
            ::umount2(m_path.constData(), MNT_DETACH);
        }
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }

  private:
    QByteArray m_path;
    bool m_mounted;
};

/// What a library holds before the trouble comes.
void fillLibrary()
{
    EXPECT_TRUE(ImageStore::saveImage(QStringLiteral("old.png"), "picture"));
    ImageStore::savePrompt(QStringLiteral("lake"), QStringLiteral("old.png"));
    ImageStore::saveFavorite(QStringLiteral("old.png"));
    ImageStore::saveVariantLink(QStringLiteral("old.png"), QStringLiteral("large.png"));
}

void expectLibraryAsFilled(const QString &library)
{
    EXPECT_EQ(QDir(library).entryList(QDir::Files | QDir::Hidden, QDir::Name),
              (QStringList{QStringLiteral("favorites.json"), QStringLiteral("old.png"), QStringLiteral("prompts.json"),
                           QStringLiteral("variants.json")}));
    EXPECT_EQ(contentOf(library + QStringLiteral("/old.png")), "picture");
    EXPECT_EQ(contentOf(library + QStringLiteral("/prompts.json")), "{\"old.png\":\"lake\"}");
    EXPECT_EQ(contentOf(library + QStringLiteral("/favorites.json")), "[\"old.png\"]");
    EXPECT_EQ(contentOf(library + QStringLiteral("/variants.json")), "{\"old.png\":\"large.png\"}");
}

/// More than any disk or limit of these tests holds.
const QString kLongText(200'000, QLatin1Char('x'));

} // namespace

TEST(ImageStoreTrouble, aWriteThatFailsHalfWayChangesNothing)
{
    const PrivateHome home;
    fillLibrary();
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("new.png"), QByteArray(50'000, 'x')));
        EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("old.png"), QByteArray(50'000, 'x')));
        ImageStore::savePrompt(kLongText, QStringLiteral("new.png"));
        ImageStore::saveFavorite(kLongText);
        ImageStore::saveVariantLink(QStringLiteral("new.png"), kLongText);
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
    EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("new.png"), QByteArray(100'000, 'x')));
    EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("old.png"), QByteArray(100'000, 'x')));
    ImageStore::savePrompt(kLongText, QStringLiteral("new.png"));
    ImageStore::saveFavorite(kLongText);
    ImageStore::saveVariantLink(QStringLiteral("new.png"), kLongText);
    expectLibraryAsFilled(home.library());
}

TEST(ImageStoreTrouble, aDiskWithoutRoomForAnotherFileChangesNothing)
{
    const PrivateHome home;
    // One inode for the folder and four for the files of the library.
    const SmallDisk disk(home.library(), "size=1m,nr_inodes=6");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no right to mount a small disk here";
    }
    fillLibrary();
    ASSERT_TRUE(putFile(home.library() + QStringLiteral("/last")));
    EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("new.png"), "x"));
    ImageStore::savePrompt(QStringLiteral("p"), QStringLiteral("new.png"));
    ASSERT_TRUE(QFile::remove(home.library() + QStringLiteral("/last")));
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
        EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("new.png"), "x"));
        ImageStore::savePrompt(QStringLiteral("p"), QStringLiteral("new.png"));
        ImageStore::deleteImage(QStringLiteral("old.png"));
        EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + QStringLiteral("/old.png")});
    }
    expectLibraryAsFilled(home.library());
    ::chmod(QFile::encodeName(home.library()).constData(), 0755);
}

TEST(ImageStoreTrouble, aFolderThatCannotBeMadeIsAnEmptyLibrary)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.path() + QStringLiteral("/Pictures")));
    EXPECT_EQ(ImageStore::directory(), home.library());
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_FALSE(ImageStore::saveImage(QStringLiteral("a.png"), "x"));
    ImageStore::savePrompt(QStringLiteral("p"), QStringLiteral("a.png"));
    ImageStore::saveFavorite(QStringLiteral("a.png"));
    ImageStore::deleteImage(QStringLiteral("/nowhere/a.png"));
    EXPECT_EQ(ImageStore::variant(QStringLiteral("a.png")), std::nullopt);
    EXPECT_EQ(contentOf(home.path() + QStringLiteral("/Pictures")), "x");
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
    EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + QStringLiteral("/old.png")});
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
    ImageStore::savePrompt(QStringLiteral("p"), QStringLiteral("new.png"));
    EXPECT_EQ(readTextMap(path), (TextMap{{QStringLiteral("new.png"), QStringLiteral("p")}}));
}

TEST(ImageStoreTrouble, aFileThatCannotBeDeletedStillLosesItsEntries)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.library() + QStringLiteral("/full.png/inside.txt")));
    ASSERT_TRUE(putFile(home.library() + QStringLiteral("/small.png")));
    ImageStore::savePrompt(QStringLiteral("p"), QStringLiteral("full.png"));
    ImageStore::saveVariantLink(QStringLiteral("small.png"), QStringLiteral("full.png"));
    ImageStore::deleteImage(home.library() + QStringLiteral("/full.png"));
    EXPECT_TRUE(QFileInfo::exists(home.library() + QStringLiteral("/full.png/inside.txt")));
    EXPECT_FALSE(QFileInfo::exists(home.library() + QStringLiteral("/small.png")));
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
    EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + QStringLiteral("/old.png")});
    for (const QString &name : {QFile::decodeName("\xff\xfe odd.png"), QString(QChar(0xd800)) + QStringLiteral(".png"),
                                QStringLiteral("old.png") + QChar(u'\0')}) {
        ImageStore::savePrompt(QStringLiteral("p"), name);
        ImageStore::saveFavorite(name);
        EXPECT_EQ(ImageStore::variant(name), std::nullopt);
        ImageStore::deleteImage(home.library() + QLatin1Char('/') + name);
    }
    EXPECT_EQ(::access(odd.constData(), F_OK), 0);
    ASSERT_EQ(::unlink(odd.constData()), 0);
    expectLibraryAsFilled(home.library());
}

TEST(ImageStoreTrouble, whatAKilledProcessLeftIsNeverListedAndCanBeRemoved)
{
    const PrivateHome home;
    fillLibrary();
    Keychain::save(QStringLiteral("k1"), QStringLiteral("gemini"));
    const QString keys = home.path() + QStringLiteral("/Library/Application Support/Quorvane");
    for (const QString &folder : {home.library(), keys}) {
        const QString path = folder + QStringLiteral("/.half.png.abcdef.quorvane-tmp");
        ASSERT_TRUE(putFile(path));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addDays(-1), QFileDevice::FileModificationTime));
    }
    EXPECT_EQ(ImageStore::allImages(), QStringList{home.library() + QStringLiteral("/old.png")});
    ImageStore::removeAbandonedTemporaries();
    Keychain::removeAbandonedTemporaries();
    expectLibraryAsFilled(home.library());
    EXPECT_EQ(QDir(keys).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("keys.json")});
}

TEST(KeychainTrouble, aWriteThatFailsHalfWayKeepsTheKeys)
{
    const PrivateHome home;
    Keychain::save(QStringLiteral("k1"), QStringLiteral("gemini"));
    {
        const FileSizeLimit limit(100);
        Keychain::save(kLongText, QStringLiteral("grok"));
        EXPECT_FALSE(Keychain::saveIfAbsent(kLongText, QStringLiteral("openai")));
    }
    EXPECT_EQ(Keychain::readAll(), (TextMap{{QStringLiteral("gemini"), QStringLiteral("k1")}}));
}

TEST(KeychainTrouble, anUnreadableFileIsEmpty)
{
    const PrivateHome home;
    Keychain::save(QStringLiteral("k1"), QStringLiteral("gemini"));
    const QString folder = home.path() + QStringLiteral("/Library/Application Support/Quorvane");
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    AsOrdinaryUser::giveAway(folder);
    ASSERT_EQ(::chmod(QFile::encodeName(folder + QStringLiteral("/keys.json")).constData(), 0), 0);
    const AsOrdinaryUser user;
    EXPECT_TRUE(Keychain::readAll().empty());
    EXPECT_FALSE(Keychain::load(QStringLiteral("gemini")));
}

TEST(KeychainTrouble, aFolderThatCannotBeMadeIsAnEmptyStore)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.path() + QStringLiteral("/Library")));
    Keychain::save(QStringLiteral("k1"), QStringLiteral("gemini"));
    Keychain::remove(QStringLiteral("gemini"));
    EXPECT_FALSE(Keychain::saveIfAbsent(QStringLiteral("k1"), QStringLiteral("gemini")));
    EXPECT_TRUE(Keychain::readAll().empty());
}

} // namespace quorvane
