#include "App/Tray/MenuBarIcon.h"

#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kPicture = u"<svg xmlns='http://www.w3.org/2000/svg' width='22' height='22' viewBox='0 0 22 22'>"
                         "<rect x='%1' y='4' width='4' height='14'/></svg>"_s;

/// The share of pixels that are not transparent.
double coverage(const QImage &image)
{
    int covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            covered += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
        }
    }
    return double(covered) / (image.width() * image.height());
}

} // namespace

TEST(MenuBarIcon, isDrawnForBothScalesOnATransparentGround)
{
    const PrivateHome home;
    const MenuBarIcon icon = menuBarIcon();
    ASSERT_EQ(icon.images.size(), 2);
    EXPECT_EQ(icon.images.first().size(), QSize(22, 22));
    EXPECT_EQ(icon.images.last().size(), QSize(44, 44));
    for (const QImage &image : icon.images) {
        EXPECT_EQ(image.format(), QImage::Format_ARGB32);
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
        EXPECT_GT(coverage(image), 0.15);
        EXPECT_LT(coverage(image), 0.6);
        for (int x = 0; x < image.width(); ++x) {
            // One colour: what is not transparent is grey.
            const QRgb pixel = image.pixel(x, image.height() / 2);
            EXPECT_LE(std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}) -
                          std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)}),
                      2);
        }
    }
}

TEST(MenuBarIcon, whereItIsMissingSparklesStandInForIt)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(putFile(folder.filePath(u"sparkles.svg"_s), kPicture.arg(2).toUtf8()));
    const QImage sparkles = menuBarIcon(folder.path()).images.first();
    EXPECT_GT(qAlpha(sparkles.pixel(4, 10)), 200);
    EXPECT_EQ(qAlpha(sparkles.pixel(16, 10)), 0);
    ASSERT_TRUE(putFile(folder.filePath(u"MenuBarIcon.svg"_s), kPicture.arg(14).toUtf8()));
    const QImage own = menuBarIcon(folder.path()).images.first();
    EXPECT_EQ(qAlpha(own.pixel(4, 10)), 0);
    EXPECT_GT(qAlpha(own.pixel(16, 10)), 200);
}

TEST(MenuBarIconDeathTest, withoutEitherTheProgramIsBroken)
{
    const QTemporaryDir empty;
    EXPECT_DEATH((void)menuBarIcon(empty.path()), "icon is missing");
}

TEST(MenuBarIcon, theIconThemesOneIsNamedWhereItIsInstalled)
{
    const PrivateHome home;
    EXPECT_TRUE(menuBarIcon().name.isEmpty());
    ASSERT_TRUE(putFile(home.path() + u"/.local/share/icons/hicolor/symbolic/apps/"
                                      "app.quorvane.Quorvane-symbolic.svg"_s));
    EXPECT_EQ(menuBarIcon().name, u"app.quorvane.Quorvane-symbolic"_s);
}

} // namespace quorvane
