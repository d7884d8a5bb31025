#include "Platform/Desktops/Protocols/PlasmaScript.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kImage = u"file:///p/a.png"_s;

PlasmaScript::Report report(const char *desktops, int screenCount)
{
    return PlasmaScript::reportOf(
               uR"({"screenCount": %1, "desktops": [%2]})"_s.arg(screenCount).arg(QString::fromUtf8(desktops)))
        .value();
}

constexpr auto kFirst = R"({"screen": 0, "plugin": "org.kde.image", "image": "file:///p/a.png"})";
constexpr auto kBoth = R"({"screen": 0, "plugin": "org.kde.image", "image": "file:///p/a.png"},
                          {"screen": 1, "plugin": "org.kde.image", "image": "file:///p/a.png"})";
constexpr auto kHidden = R"({"screen": 0, "plugin": "org.kde.image", "image": "file:///p/a.png"},
                            {"screen": -1, "plugin": "org.kde.color", "image": "/q/b%20c.png"})";
constexpr auto kOtherPlugin = R"({"screen": 0, "plugin": "org.kde.slideshow", "image": "file:///p/a.png"})";
constexpr auto kOtherImage = R"({"screen": 0, "plugin": "org.kde.image", "image": "file:///p/b.png"})";

} // namespace

TEST(PlasmaScript, isEverywhereOnlyWhenEveryScreenHasThePicture)
{
    EXPECT_TRUE(report(kBoth, 2).isEverywhere(kImage));
    EXPECT_TRUE(report(kHidden, 1).isEverywhere(kImage)) << "another activity's desktop may differ";
    EXPECT_FALSE(report(kFirst, 2).isEverywhere(kImage));
    EXPECT_FALSE(report(kOtherPlugin, 1).isEverywhere(kImage));
    EXPECT_FALSE(report(kOtherImage, 1).isEverywhere(kImage));
    EXPECT_FALSE(report("", 0).isEverywhere(kImage));
    EXPECT_EQ(report(kBoth, 2).visible(), 2);
    EXPECT_EQ(report(kHidden, 1).visible(), 1);
}

TEST(PlasmaScript, filesAreThoseOfHiddenDesktopsToo)
{
    EXPECT_EQ(report(kHidden, 1).files(), (QStringList{u"/p/a.png"_s, u"/q/b%20c.png"_s}));
}

TEST(PlasmaScript, anythingElseIsNoReport)
{
    for (const char *printed : {"", "undefined", "[]", "{}", "{\"desktops\": 3}", "Error: widgets are locked"}) {
        EXPECT_FALSE(PlasmaScript::reportOf(QString::fromUtf8(printed))) << printed;
    }
}

TEST(PlasmaScript, noNameBreaksOutOfItsText)
{
    const QString path = QString::fromUtf8("/p/o'b \"q\" \\ #1 100% \n\xE2\x80\xA8日本.png");
    const QString url = PlasmaScript::urlOf(path);
    EXPECT_EQ(url, u"file:///p/o'b%20%22q%22%20%5C%20%231%20100%25%20%0A%E2%80%A8%E6%97%A5%E6%9C%AC.png"_s);
    EXPECT_TRUE(PlasmaScript::setting(url).contains('"'_L1 + url + '"'_L1));
    EXPECT_TRUE(PlasmaScript::setting(u"\"); evil(\""_s).contains(uR"("image":"\"); evil(\"")"_s));
}

} // namespace quorvane
