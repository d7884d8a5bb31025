#include "App/Tray/Notices.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kFile = u"/a.png"_s;
const QString kStatus = u"Wallpaper set!"_s;

OperationResult failed(bool isTimed, const QString &status, const QString &file = {})
{
    return {.isTimed = isTimed, .status = status, .isError = true, .file = file, .original = {}, .problems = {}};
}

OperationResult succeeded(bool isTimed, const QString &file, const QStringList &problems = {})
{
    return {.isTimed = isTimed, .status = kStatus, .file = file, .original = {}, .problems = problems};
}

} // namespace

TEST(Notices, onlyATimedFailureIsTold)
{
    for (const bool isVisible : {false, true}) {
        const auto told = noticeFor(failed(true, u"no network"_s), isVisible);
        ASSERT_TRUE(told);
        EXPECT_EQ(told->text, u"no network"_s);
        EXPECT_TRUE(told->picture.isEmpty());
        EXPECT_FALSE(noticeFor(failed(false, u"no network"_s), isVisible));
    }
    // A picture that was saved but could not be set is a failure.
    EXPECT_TRUE(noticeFor(failed(true, u"Failed: no"_s, kFile), false)->picture.isEmpty());
}

TEST(Notices, aPictureIsToldWhereNobodySeesIt)
{
    for (const bool isTimed : {false, true}) {
        const auto told = noticeFor(succeeded(isTimed, kFile), false);
        ASSERT_TRUE(told);
        EXPECT_EQ(told->picture, kFile);
        EXPECT_EQ(told->text, kStatus);
        EXPECT_FALSE(noticeFor(succeeded(isTimed, kFile), true));
    }
}

TEST(Notices, whatLeavesNoPictureIsNotTold)
{
    EXPECT_FALSE(noticeFor(succeeded(false, {}), false));
}

TEST(Notices, whatWasNotKeptStandsInLinesOfItsOwn)
{
    const auto told = noticeFor(succeeded(true, kFile, {u"no prompt"_s, u"no link"_s}), false);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->text, u"Wallpaper set!\nno prompt\nno link"_s);
    // Also where there is no picture to tell of.
    const auto alone = noticeFor({.status = {}, .file = {}, .original = {}, .problems = {u"put aside"_s}}, false);
    ASSERT_TRUE(alone);
    EXPECT_EQ(alone->text, u"put aside"_s);
    EXPECT_TRUE(alone->picture.isEmpty());
}

} // namespace quorvane
