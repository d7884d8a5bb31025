#include "UI/ViewFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class ViewerView : public ViewTest
{
  protected:
    void show()
    {
        const QString path = putPainting(u"one.png"_s, u"a lake"_s);
        start();
        open();
        click(u"album a lake"_s);
        click(u"tile "_s + path);
        click(u"fullScreenButton"_s);
        for (QWindow *each : QGuiApplication::topLevelWindows()) {
            if (each->objectName() == "viewer"_L1) {
                viewer = each;
            }
        }
        ASSERT_NE(viewer, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    }

    QWindow *viewer = nullptr;
};

TEST_F(ViewerView, itFillsTheScreenAboveEverything)
{
    show();
    EXPECT_EQ(viewer->visibility(), QWindow::FullScreen);
    EXPECT_TRUE(viewer->flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(viewer->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(viewer->geometry(), viewer->screen()->geometry());
    QTest::mouseMove(viewer, QPoint(50, 50));
    EXPECT_TRUE(waitFor([&] { return viewer->cursor().shape() == Qt::BlankCursor; }));
}

TEST_F(ViewerView, escapeEndsItAndGivesTheWindowBack)
{
    show();
    QTest::keyClick(viewer, Qt::Key_Escape);
    EXPECT_FALSE(viewer->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_TRUE(isSeen(u"preview"_s));
}

TEST_F(ViewerView, anyClickEndsIt)
{
    show();
    QTest::mouseClick(viewer, Qt::RightButton, {}, QPoint(100, 100));
    EXPECT_FALSE(viewer->isVisible());
}

} // namespace quorvane
