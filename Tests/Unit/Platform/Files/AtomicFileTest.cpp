#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/SystemCall.h"
#include "Support/FileMode.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

} // namespace

TEST(AtomicFile, writesTheBytesAndLeavesNothingElseBehind)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    ASSERT_TRUE(writeFileAtomically(path, "one"));
    ASSERT_TRUE(writeFileAtomically(path, "two"));
    EXPECT_EQ(contentOf(path), "two");
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.json"_s});
}

TEST(AtomicFile, aPrivateFileIsReadableByItsOwnerOnly)
{
    const PrivateHome home;
    const QString path = home.path() + u"/keys.json"_s;
    ASSERT_TRUE(writeFileAtomically(path, "{}", FileAccess::OwnerOnly));
    EXPECT_EQ(QFileInfo(path).permissions() &
                  (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions());
}

TEST(AtomicFile, aFailedWriteLeavesTheOldFileAndNoTemporary)
{
    const PrivateHome home;
    // A folder cannot be replaced by a file, so the rename fails after everything else succeeded.
    ASSERT_TRUE(QDir(home.path()).mkpath(u"taken/inside"_s));
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/taken"_s, "x"));
    EXPECT_TRUE(QDir(home.path() + u"/taken/inside"_s).exists());
    EXPECT_TRUE(QDir(home.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST(AtomicFile, anExistingFileKeepsItsPermissions)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    for (const mode_t mode : {0600U, 0640U, 0664U, 0444U}) {
        ASSERT_TRUE(putFile(path, "old"));
        ASSERT_TRUE(setMode(path, mode));
        ASSERT_TRUE(writeFileAtomically(path, "new"));
        EXPECT_EQ(contentOf(path), "new");
        EXPECT_EQ(modeOf(path), mode);
        ASSERT_TRUE(QFile::remove(path));
    }
}

TEST(AtomicFile, whatIsWrittenOverAFileThatNobodyMayReadCanBeReadByItsOwner)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(setMode(path, 0));
    ASSERT_TRUE(writeFileAtomically(path, "new"));
    EXPECT_EQ(modeOf(path), 0400U);
}

TEST(AtomicFile, aFileThatOthersCouldReadBecomesPrivateWhenItHasTo)
{
    const PrivateHome home;
    const QString path = home.path() + u"/keys.json"_s;
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(setMode(path, 0644));
    ASSERT_TRUE(writeFileAtomically(path, "{}", FileAccess::OwnerOnly));
    EXPECT_EQ(modeOf(path), 0600U);
}

TEST(AtomicFile, aLinkStaysAndTheFileThatItLeadsToIsWritten)
{
    const PrivateHome home;
    const QString target = home.path() + u"/dotfiles/deep/favorites.json"_s;
    ASSERT_TRUE(putFile(target, "old"));
    ASSERT_TRUE(setMode(target, 0640));
    ASSERT_TRUE(QDir(home.path()).mkpath(u"library"_s));
    // One link by a path of its own folder, which is reached through a link as well, and one by a whole path.
    ASSERT_TRUE(QFile::link(home.path() + u"/dotfiles/deep"_s, home.path() + u"/short"_s));
    ASSERT_TRUE(QFile::link(u"../deep/favorites.json"_s, home.path() + u"/dotfiles/deep/relative.json"_s));
    const QString link = home.path() + u"/library/favorites.json"_s;
    ASSERT_TRUE(QFile::link(home.path() + u"/short/relative.json"_s, link));

    ASSERT_TRUE(writeFileAtomically(link, "new"));
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_EQ(modeOf(target), 0640U);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_TRUE(QFileInfo(home.path() + u"/dotfiles/deep/relative.json"_s).isSymLink());
    EXPECT_EQ(entriesOf(home.path() + u"/library"_s), QStringList{u"favorites.json"_s});
    EXPECT_EQ(entriesOf(QFileInfo(target).path()), (QStringList{u"favorites.json"_s, u"relative.json"_s}));
    const Result<QString> written = writtenPath(link);
    ASSERT_TRUE(written);
    EXPECT_EQ(QFileInfo(*written).canonicalFilePath(), QFileInfo(target).canonicalFilePath());
}

TEST(AtomicFile, aLinkToAFileThatIsNotThereYetMakesIt)
{
    const PrivateHome home;
    ASSERT_TRUE(QFile::link(u"target.json"_s, home.path() + u"/link.json"_s));
    ASSERT_TRUE(writeFileAtomically(home.path() + u"/link.json"_s, "new"));
    EXPECT_EQ(contentOf(home.path() + u"/target.json"_s), "new");
    EXPECT_TRUE(QFileInfo(home.path() + u"/link.json"_s).isSymLink());
}

TEST(AtomicFile, linksThatLeadInACircleAreAFailure)
{
    const PrivateHome home;
    ASSERT_TRUE(QFile::link(u"b.json"_s, home.path() + u"/a.json"_s));
    ASSERT_TRUE(QFile::link(u"a.json"_s, home.path() + u"/b.json"_s));
    const Result<> written = writeFileAtomically(home.path() + u"/a.json"_s, "x");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.failure().words, u"Too many levels of symbolic links"_s);
    EXPECT_EQ(entriesOf(home.path()).size(), 2);
}

TEST(AtomicFile, whatIsNoRegularFileIsNotReplaced)
{
    const PrivateHome home;
    const QString pipe = home.path() + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(writeFileAtomically(pipe, "x"));
    ASSERT_TRUE(QFile::link(pipe, home.path() + u"/link"_s));
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/link"_s, "x"));
    struct stat status = {};
    ASSERT_EQ(::lstat(QFile::encodeName(pipe).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST(AtomicFile, aWriteThatFailsHalfWayLeavesTheOldFileAndNoTemporary)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    ASSERT_TRUE(putFile(path, "old"));
    {
        const FileSizeLimit limit(100);
        const Result<> written = writeFileAtomically(path, QByteArray(5000, 'x'));
        ASSERT_FALSE(written);
        EXPECT_EQ(written.failure().words, u"File too large"_s);
    }
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(entriesOf(home.path()), QStringList{u"a.json"_s});
}

TEST(AtomicFile, aFullDiskLeavesTheOldFileAndNoTemporary)
{
    const PrivateHome home;
    const QString folder = home.path() + u"/disk"_s;
    const SmallDisk disk(folder, "size=64k");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no right to mount a small disk here; the limited file size stands in for it";
    }
    ASSERT_TRUE(putFile(folder + u"/a.json"_s, "old"));
    const Result<> written = writeFileAtomically(folder + u"/a.json"_s, QByteArray(100'000, 'x'));
    ASSERT_FALSE(written);
    EXPECT_EQ(written.failure().words, u"No space left on device"_s);
    EXPECT_EQ(contentOf(folder + u"/a.json"_s), "old");
    EXPECT_EQ(entriesOf(folder), QStringList{u"a.json"_s});
}

TEST(AtomicFile, aMissingFolderIsAFailure)
{
    const PrivateHome home;
    const Result<> written = writeFileAtomically(home.path() + u"/none/a"_s, "x");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.failure().words, u"No such file or directory"_s);
    EXPECT_FALSE(writeFileAtomically(QString(), "x"));
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/a\0b"_s, "x"));
}

TEST(AtomicFile, onlyTemporariesOfOursThatNobodyWritesAreRemoved)
{
    const PrivateHome home;
    for (const QString &name : {u".a.json.XyZ123.quorvane-tmp"_s, u".b.json.XyZ123.quorvane-tmp"_s, u".other-program"_s,
                                u"wallpaper.png"_s}) {
        ASSERT_TRUE(putFile(home.path() + '/'_L1 + name));
    }
    // Somebody writes the second one at this moment.
    const FileDescriptor writer(
        ::open(QFile::encodeName(home.path() + u"/.b.json.XyZ123.quorvane-tmp"_s).constData(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(::flock(writer.get(), LOCK_EX), 0);
    removeAbandonedTemporaries(home.path());
    EXPECT_EQ(entriesOf(home.path()),
              (QStringList{u".b.json.XyZ123.quorvane-tmp"_s, u".other-program"_s, u"wallpaper.png"_s}));
}

TEST(AtomicFile, aWriteBesideOthersThatRemoveWhatIsAbandonedIsNeverLost)
{
    const PrivateHome home;
    std::atomic<bool> isDone = false;
    std::thread remover([&] {
        while (!isDone) {
            removeAbandonedTemporaries(home.path());
        }
    });
    int failures = 0;
    for (int round = 0; round < 200; ++round) {
        failures += writeFileAtomically(home.path() + u"/a"_s, QByteArray::number(round)) ? 0 : 1;
    }
    isDone = true;
    remover.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(contentOf(home.path() + u"/a"_s), "199");
    EXPECT_EQ(entriesOf(home.path()), QStringList{u"a"_s});
}

} // namespace quorvane
