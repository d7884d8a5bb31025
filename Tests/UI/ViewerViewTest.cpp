#include "UI/ViewFixture.h"

namespace quorvane {

class ViewerView : public ViewTest
{
  protected:
    void show()
    {
        const QString path = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
        start();
        open();
        click(QStringLiteral("album a lake"));
        click(QStringLiteral("tile ") + path);
        click(QStringLiteral("fullScreenButton"));
        for (QWindow *each : QGuiApplication::topLevelWindows()) {
            if (each->objectName() == QLatin1String("viewer")) {
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
    EXPECT_TRUE(isSeen(QStringLiteral("preview")));
}

TEST_F(ViewerView, anyClickEndsIt)
{
    show();
    QTest::mouseClick(viewer, Qt::RightButton, {}, QPoint(100, 100));
    EXPECT_FALSE(viewer->isVisible());
}

} // namespace quorvane
