#include "Platform/Files/FolderLock.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QByteArray lockPath(const PrivateHome &home)
{
    return QFile::encodeName(home.path()) + "/.lock";
}

} // namespace

TEST(FolderLock, onlyOneHoldsItAtATime)
{
    const PrivateHome home;
    std::atomic<int> inside = 0;
    std::atomic<int> together = 0;
    std::atomic<int> held = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                const FolderLock lock(home.path());
                held += lock.isHeld() ? 1 : 0;
                together += ++inside > 1 ? 1 : 0;
                --inside;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(held, 200);
    EXPECT_EQ(together, 0);
}

TEST(FolderLock, itsFileCanBeOpenedByItsOwnerOnly)
{
    const PrivateHome home;
    const mode_t umaskBefore = ::umask(0);
    EXPECT_TRUE(FolderLock(home.path()).isHeld());
    ::umask(umaskBefore);
    struct stat status = {};
    ASSERT_EQ(::stat(lockPath(home).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);

    ASSERT_EQ(::chmod(lockPath(home).constData(), 0666), 0);
    EXPECT_TRUE(FolderLock(home.path()).isHeld());
    ASSERT_EQ(::stat(lockPath(home).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST(FolderLock, whoHoldsTheFolderItselfKeepsNobodyAway)
{
    const PrivateHome home;
    const FileDescriptor folder(::open(QFile::encodeName(home.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(folder.get(), LOCK_EX), 0);
    EXPECT_TRUE(FolderLock(home.path()).isHeld());
}

TEST(FolderLock, whoNeverLetsGoIsNotWaitedForForEver)
{
    const PrivateHome home;
    EXPECT_TRUE(FolderLock(home.path()).isHeld());
    {
        const FileDescriptor other(::open(lockPath(home).constData(), O_RDWR | O_CLOEXEC));
        ASSERT_EQ(::flock(other.get(), LOCK_EX), 0);
        EXPECT_FALSE(FolderLock(home.path()).isHeld());
        // That was found out once; a hundred more would take minutes if each waited for itself.
        for (int round = 0; round < 100; ++round) {
            EXPECT_FALSE(FolderLock(home.path()).isHeld());
        }
    }
    // The thread that waited in vain has it for a moment, and lets go; nobody waits for that one either.
    EXPECT_TRUE(waitFor([&] { return FolderLock(home.path()).isHeld(); }));
}

TEST(FolderLock, whereThereCanBeNoneTheWorkGoesOn)
{
    const PrivateHome home;
    EXPECT_FALSE(FolderLock(home.path() + u"/missing"_s).isHeld());
    ASSERT_EQ(::mkfifo(lockPath(home).constData(), 0600), 0);
    EXPECT_FALSE(FolderLock(home.path()).isHeld());
}

} // namespace quorvane
