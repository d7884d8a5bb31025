#include "Unit/Platform/Files/AtomicFileFixture.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/SystemCall.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"

#include <QFile>

#include <atomic>
#include <thread>

#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(AtomicFile, aFailedWriteLeavesTheOldFileAndNoTemporary)
{
    const PrivateHome home;
    // A folder cannot be replaced by a file, so the rename fails after everything else succeeded.
    ASSERT_TRUE(QDir(home.path()).mkpath(u"taken/inside"_s));
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/taken"_s, "x"));
    EXPECT_TRUE(QDir(home.path() + u"/taken/inside"_s).exists());
    EXPECT_TRUE(QDir(home.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
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
