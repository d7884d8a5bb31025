#include "Platform/Desktops/DesktopPictureSway.h"
#include "Support/Results.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(DesktopPictureSway, theScreensAreTheActiveOutputsInOrder)
{
    const QByteArray outputs = R"([
        {"name": "HEADLESS-1", "active": true, "transform": "normal", "current_mode": {"width": 1280, "height": 720}},
        {"name": "OFF-1", "active": false, "current_mode": {"width": 1280, "height": 720}},
        {"name": "DP-2", "active": true, "transform": "90", "current_mode": {"width": 1920, "height": 1080}},
        {"name": "DP-3", "active": true, "transform": "flipped-270", "current_mode": {"width": 800, "height": 600}},
        {"name": "DP-4", "active": true, "transform": "flipped-180", "current_mode": {"width": 800, "height": 600}},
        {"name": "NO-MODE", "active": true},
        {"name": "", "active": true, "current_mode": {"width": 1, "height": 1}},
        {"active": true, "current_mode": {"width": 1, "height": 1}},
        {"name": "NEGATIVE", "active": true, "current_mode": {"width": -1, "height": 1}},
        {"name": "TEXT", "active": true, "current_mode": {"width": "1", "height": 1}},
        7, "text", null, []
    ])";
    EXPECT_EQ(DesktopPictureSway::screensOf(outputs), (QList<Screen>{{u"HEADLESS-1"_s, QSize(1280, 720)},
                                                                     {u"DP-2"_s, QSize(1080, 1920)},
                                                                     {u"DP-3"_s, QSize(600, 800)},
                                                                     {u"DP-4"_s, QSize(800, 600)}}));
    for (const QByteArray &garbage : {QByteArray(), QByteArray("{}"), QByteArray("[1"), QByteArray("\xff\xfe")}) {
        EXPECT_EQ(DesktopPictureSway::screensOf(garbage), QList<Screen>());
    }
}

TEST(DesktopPictureSway, aFailureIsReadFromEveryAnswerThatIsNoSuccess)
{
    struct Case
    {
        QByteArray answer;
        Result<> outcome;
    };
    const Failure unclear{u"sway's answer cannot be understood"_s};
    const Failure refused{u"sway refused the picture"_s};
    const Case cases[] = {
        {R"([{"success": true}])", kDone},
        {R"([{"success": true}, {"success": true}])", kDone},
        {R"([{"success": false, "parse_error": true, "error": "Invalid syntax"}])", Failure{u"Invalid syntax"_s}},
        {R"([{"success": true}, {"success": false, "error": "Two"}])", Failure{u"Two"_s}},
        {R"([{"success": false}])", refused},
        {R"([{}])", refused},
        {R"([7])", refused},
        {R"([])", unclear},
        {R"({"success": true})", unclear},
        {"", unclear},
        {"\xff", unclear},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(DesktopPictureSway::outcomeOf(each.answer), each.outcome) << each.answer.constData();
    }
}

TEST(DesktopPictureSway, onlyPlainPathsAreHandedOver)
{
    for (const char *path : {"/", "/a/B_9/c-d.e.png", "/home/user/Pictures/Quorvane/2025-01-01_10-00-00.png"}) {
        EXPECT_TRUE(DesktopPictureSway::isPlainPath(QString::fromUtf8(path))) << path;
    }
    for (const char *path :
         {"",     "relative.png", "/a b",  "/a'b", "/a\"b", "/$(x)", "/`x`",  "/~",   "/a;b", "/a,b", "/a#b",
          "/a%b", "/a\nb",        "/a\\b", "/a*b", "/a?b",  "/a[b]", "/a{b}", "/a&b", "/a|b", "/ü",   "/日"}) {
        EXPECT_FALSE(DesktopPictureSway::isPlainPath(QString::fromUtf8(path))) << path;
    }
}

TEST(DesktopPictureSway, screenNamesHaveOneMeaningOrAreRefused)
{
    const QString path = u"/p.png"_s;
    EXPECT_EQ(DesktopPictureSway::commandFor(u"DP-1"_s, path), QByteArray("output \"DP-1\" bg /p.png fill"));
    EXPECT_EQ(DesktopPictureSway::commandFor(u"My; exec x, 'y'"_s, path),
              QByteArray("output \"My; exec x, 'y'\" bg /p.png fill"));
    for (const char *name : {"", "*", "-", "--", "a\"b", "a\\", "$x", "a\nb", "a\x7f"}) {
        EXPECT_EQ(DesktopPictureSway::commandFor(QString::fromUtf8(name), path), std::nullopt) << name;
    }
}

} // namespace quorvane
