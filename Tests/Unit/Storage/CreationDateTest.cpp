#include "Storage/CreationDate.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(CreationDate, isBetweenTheMomentsBeforeAndAfterTheFileWasMade)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.png"_s;
    // The file system's clock may lag by a timer tick.
    const QDateTime before = QDateTime::currentDateTimeUtc().addMSecs(-100);
    ASSERT_TRUE(putFile(path));
    const auto created = creationDate(path);
    ASSERT_TRUE(created);
    EXPECT_GE(created->toDateTime(), before);
    EXPECT_LE(created->toDateTime(), QDateTime::currentDateTimeUtc());
    EXPECT_LT(created->nanoseconds, 1'000'000'000U);
}

TEST(CreationDate, doesNotMoveWhenTheFileIsModified)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.png"_s;
    ASSERT_TRUE(putFile(path));
    struct statx status = {};
    ASSERT_EQ(::statx(AT_FDCWD, QFile::encodeName(path).constData(), 0, STATX_BTIME, &status), 0);
    if ((status.stx_mask & STATX_BTIME) == 0) {
        GTEST_SKIP() << "the file system of the temporary folder keeps no creation dates";
    }
    const auto created = creationDate(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addDays(-9), QFileDevice::FileModificationTime));
    EXPECT_EQ(creationDate(path), created);
}

TEST(CreationDate, isTheModificationDateWhereThereIsNoOther)
{
    // The process file system keeps no creation dates.
    const QString path = u"/proc/self/status"_s;
    struct statx status = {};
    ASSERT_EQ(::statx(AT_FDCWD, QFile::encodeName(path).constData(), 0, STATX_BTIME | STATX_MTIME, &status), 0);
    ASSERT_EQ(status.stx_mask & STATX_BTIME, 0U);
    EXPECT_EQ(creationDate(path), (CreationDate{status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec}));
}

TEST(CreationDate, isAbsentForWhatIsNotThere)
{
    const PrivateHome home;
    EXPECT_FALSE(creationDate(home.path() + u"/missing.png"_s));
}

TEST(CreationDate, ofALinkIsItsOwn)
{
    const PrivateHome home;
    const QString link = home.path() + u"/dangling.png"_s;
    ASSERT_TRUE(QFile::link(home.path() + u"/missing.png"_s, link));
    EXPECT_TRUE(creationDate(link));
}

TEST(CreationDate, sortsNewestFirstUndatedLastAndKeepsTheOrderOfEqualOnes)
{
    const auto name = [](int number) { return QString::number(number); };
    std::vector<DatedFile> files{{name(0), std::nullopt},         {name(1), CreationDate{-5, 0}},
                                 {name(2), CreationDate{7, 1}},   {name(3), CreationDate{7, 2}},
                                 {name(4), std::nullopt},         {name(5), CreationDate{7, 1}},
                                 {name(6), CreationDate{1000, 0}}};
    sortNewestFirst(&files);
    QString order;
    for (const DatedFile &file : files) {
        order += file.path;
    }
    EXPECT_EQ(order, u"6325104"_s);
}

TEST(CreationDate, reachesBeyondTheYearsThatNanosecondsInSixtyFourBitsCover)
{
    EXPECT_EQ((CreationDate{253402300799, 999'999'999}).toDateTime(),
              QDateTime({9999, 12, 31}, {23, 59, 59, 999}, QTimeZone::utc()));
    EXPECT_EQ((CreationDate{-1, 500'000'000}).toDateTime(),
              QDateTime({1969, 12, 31}, {23, 59, 59, 500}, QTimeZone::utc()));
}

} // namespace quorvane
