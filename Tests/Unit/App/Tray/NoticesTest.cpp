#include "App/Tray/Notices.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kFile = u"/a.png"_s;
const QString kStatus = u"Wallpaper set!"_s;

} // namespace

TEST(Notices, onlyATimedFailureIsTold)
{
    for (const bool isVisible : {false, true}) {
        const auto told = noticeFor({true, true, u"no network"_s, {}, isVisible});
        ASSERT_TRUE(told);
        EXPECT_EQ(told->text, u"no network"_s);
        EXPECT_TRUE(told->picture.isEmpty());
        EXPECT_FALSE(noticeFor({false, true, u"no network"_s, {}, isVisible}));
    }
    // A picture that was saved but could not be set is a failure.
    EXPECT_TRUE(noticeFor({true, true, u"Failed: no"_s, kFile, false})->picture.isEmpty());
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
