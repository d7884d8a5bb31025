#include "Platform/Threads/BackgroundThread.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

// What an upscale takes from the machine: memory and processor time.

namespace quorvane {

namespace {

constexpr qint64 kMegabyte = 1 << 20;

/// A line of /proc/self/status, in bytes.
qint64 statusBytes(const char *name)
{
    QFile status(u"/proc/self/status"_s);
    if (status.open(QIODevice::ReadOnly)) {
        for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
            if (line.startsWith(name)) {
                return line.mid(line.indexOf(':') + 1).trimmed().split(' ').front().toLongLong() * 1024;
            }
        }
    }
    return -1;
}

/// Makes the kernel forget the peak so far.
bool restartPeak()
{
    QFile reset(u"/proc/self/clear_refs"_s);
    return reset.open(QIODevice::WriteOnly) && reset.write("5") == 1 && reset.flush();
}

bool memoryIsMeasurable()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return false;
#else
    return true;
#endif
}

} // namespace

TEST(LocalUpscalerResources, aFourKPictureSucceedsWithinTwoGigabytesAndMemoryFollowsTheRowOfTiles)
{
    const HomeWithModel home("nearest");
    const QImage source = positions(3840, 2160);
    const QByteArray bytes = encoded(source);
    // The engine's library and what it keeps are there before the measurement.
    ASSERT_EQ(text(upscale(encoded(positions(4, 4))).error), "");

    ASSERT_TRUE(restartPeak());
    const qint64 before = statusBytes("VmRSS");
    const UpscaleOutcome outcome = upscale(bytes);
    const qint64 peak = statusBytes("VmHWM");
    ASSERT_EQ(text(outcome.error), "");

    if (memoryIsMeasurable()) {
        // This network needs one input and one result of 32-bit numbers, and nothing between.
        constexpr qint64 kEngine = qint64(4) * 3 * (512 * 512 + 2048 * 2048);
        const qint64 decodedInput = source.sizeInBytes();
        RecordProperty("peakMegabytes", std::to_string(peak / kMegabyte));
        EXPECT_LT(peak - before, decodedInput + outcome.png.size() + kEngine + 200 * kMegabyte);
        EXPECT_LT(peak, 2048 * kMegabyte);
    }
    EXPECT_EQ(text(firstDifference(decoded(outcome.png), source)), "");
}

TEST(LocalUpscalerResources, anUpscaleLeavesNoFilesBehind)
{
    // An engine with telemetry keeps an identity and a store of events in the user's cache folder.
    const HomeWithModel home("nearest");
    ASSERT_EQ(text(upscale(encoded(positions(4, 4))).error), "");
    QStringList files;
    QDirIterator entries(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        files.append(entries.next());
    }
    EXPECT_EQ(files, QStringList{userModelPath()});
}

TEST(LocalUpscalerResources, everyThreadOfAnUpscaleHasLowPriorityAndIsGoneAfterwards)
{
    const HomeWithModel home("convolutions");
    // Two tiles, but too few pixels for Qt to convert them on threads of its own, which come and go as it likes.
    const QImage picture = positions(600, 100);
    ASSERT_EQ(text(upscale(encoded(picture)).error), "");
    const QSet<QString> before = threads();
    const int priorityBefore = getpriority(PRIO_PROCESS, 0);

    QSet<QString> seen;
    int highestPriority = 19;
    const auto lookAtThreads = [&] {
        seen = threads() - before;
        for (const QString &thread : seen) {
            highestPriority = std::min(highestPriority, getpriority(PRIO_PROCESS, thread.toUInt()));
        }
    };
    const UpscaleOutcome outcome = upscale(encoded(picture), {}, lookAtThreads);
    ASSERT_EQ(text(outcome.error), "");
    EXPECT_GE(seen.size(), physicalCores());
    EXPECT_GE(highestPriority, 10);
    EXPECT_EQ(getpriority(PRIO_PROCESS, 0), priorityBefore) << "the calling thread keeps its priority";
    EXPECT_TRUE(areGone(seen));
}

} // namespace quorvane
