#include "Desktop/Pictures/DesktopPictureLayerShellFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A picture with as much detail as its pixels can have, so that any scaling or moving would be seen.
QImage finePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525U + 1013904223U;
            picture.setPixel(x, y, 0xff000000U | (state >> 8U));
        }
    }
    return picture;
}

} // namespace

TEST_F(DesktopPictureLayerShellTest, isExactToThePixelAtAnyScaleAndTurn)
{
    start({QSize(800, 450)});
    const auto shows = [this](const QImage &picture) {
        return waitFor([&] { return m_sway->screenshot(kFirst).convertToFormat(QImage::Format_RGB32) == picture; });
    };
    const QImage wide = finePicture(QSize(800, 450));
    ASSERT_EQ(m_desktop->setPicture(save(u"wide.png"_s, wide), m_desktop->screens()), kDone);
    EXPECT_TRUE(shows(wide));
    // The surface follows each change by itself.
    for (const char *scale : {"output HEADLESS-1 scale 2", "output HEADLESS-1 scale 1.25"}) {
        tell(scale);
        EXPECT_TRUE(shows(wide)) << scale;
    }
    tell("output HEADLESS-1 scale 1 transform 90");
    ASSERT_TRUE(waitFor([&] { return m_desktop->screens().value(0).pixels == QSize(450, 800); }));
    const QImage high = finePicture(QSize(450, 800));
    ASSERT_EQ(m_desktop->setPicture(save(u"high.png"_s, high), m_desktop->screens()), kDone);
    EXPECT_TRUE(shows(high));
}

TEST_F(DesktopPictureLayerShellTest, followsModesScalesTurnsAndNewOutputsByItself)
{
    start();
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 90), m_desktop->screens()), kDone);
    ASSERT_EQ(waitForBoth(90), QString());
    tell("output HEADLESS-1 mode 1024x768");
    ASSERT_TRUE(waitFor([&] { return m_sway->screenshot(kFirst).size() == QSize(1024, 768); }));
    EXPECT_EQ(waitForPicture(*m_sway, kFirst, 90), QString());
    tell("output HEADLESS-1 scale 2");
    EXPECT_EQ(waitForPicture(*m_sway, kFirst, 90), QString());
    tell("output HEADLESS-2 transform 270");
    ASSERT_TRUE(waitFor([&] { return m_sway->screenshot(kSecond).size() == QSize(600, 400); }));
    EXPECT_EQ(waitForPicture(*m_sway, kSecond, 90), QString());
    tell("create_output");
    EXPECT_EQ(waitForPicture(*m_sway, u"HEADLESS-3"_s, 90), QString());
}

} // namespace quorvane
