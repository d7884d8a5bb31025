#include "UI/Play/FrameWatch.h"

#include <QObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Keeps the processor of this thread busy for that long.
void compute(std::chrono::milliseconds time)
{
    const auto end = FrameWatch::processorTime() + time;
    while (FrameWatch::processorTime() < end) {
    }
}

} // namespace

TEST(FrameWatch, theWorkOfOneTurnIsNotedAndWhatATestDoesBesideItIsNot)
{
    QCoreApplication::processEvents();
    (void)FrameWatch::takeLongest();
    compute(std::chrono::milliseconds(60));
    EXPECT_LT(FrameWatch::takeLongest().time, std::chrono::milliseconds(60));
    QObject receiver;
    for (int part = 0; part < 2; ++part) {
        QMetaObject::invokeMethod(
            &receiver, [] { compute(std::chrono::milliseconds(20)); }, Qt::QueuedConnection);
    }
    QCoreApplication::processEvents();
    const FrameWatch::Longest longest = FrameWatch::takeLongest();
    // Both together, within one turn.
    EXPECT_GE(longest.time, std::chrono::milliseconds(39));
    EXPECT_EQ(longest.what, u"MetaCall of QObject"_s);
    EXPECT_EQ(FrameWatch::takeLongest().time.count(), 0);
}

} // namespace quorvane
