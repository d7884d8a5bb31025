#include "App/Tray/Notices.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

const QString kFile = QStringLiteral("/a.png");
const QString kStatus = QStringLiteral("Wallpaper set!");

} // namespace

TEST(Notices, onlyATimedFailureIsTold)
{
    for (const bool isVisible : {false, true}) {
        const auto told = noticeFor({true, true, QStringLiteral("no network"), {}, isVisible});
        ASSERT_TRUE(told);
        EXPECT_EQ(told->text, QStringLiteral("no network"));
        EXPECT_TRUE(told->picture.isEmpty());
        EXPECT_FALSE(noticeFor({false, true, QStringLiteral("no network"), {}, isVisible}));
    }
    // A picture that was saved but could not be set is a failure.
    EXPECT_TRUE(noticeFor({true, true, QStringLiteral("Failed: no"), kFile, false})->picture.isEmpty());
}

TEST(Notices, aPictureIsToldWhereNobodySeesIt)
{
    for (const bool isTimed : {false, true}) {
        const auto told = noticeFor({isTimed, false, kStatus, kFile, false});
        ASSERT_TRUE(told);
        EXPECT_EQ(told->picture, kFile);
        EXPECT_EQ(told->text, kStatus);
        EXPECT_FALSE(noticeFor({isTimed, false, kStatus, kFile, true}));
    }
}

TEST(Notices, whatLeavesNoPictureIsNotTold)
{
    EXPECT_FALSE(noticeFor({false, false, kStatus, {}, false}));
}

} // namespace quorvane
