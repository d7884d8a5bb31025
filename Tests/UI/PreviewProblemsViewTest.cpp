// What the preview says of pictures that cannot be shown.

#include "UI/ViewFixture.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

class PreviewProblems : public ViewTest
{
  protected:
    void openPreview(const QString &path, const QString &album)
    {
        start();
        open();
        click(u"album "_s + album);
        click(u"tile "_s + path);
        ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    }

    [[nodiscard]] bool says(const char *text) const
    {
        return waitFor(
            [&] { return isSeen(u"previewProblem"_s) && textOf(find(u"previewProblem"_s)) == QLatin1String(text); });
    }

    [[nodiscard]] QStringList offered() const
    {
        QStringList names;
        for (const char *name : {"setButton", "favoriteButton", "previewUsePromptButton", "upscaleButton",
                                 "fullScreenButton", "originalButton"}) {
            if (isSeen(QLatin1String(name))) {
                names.append(QLatin1String(name));
            }
        }
        return names;
    }

    static constexpr auto kUnreadable = "This picture cannot be read.";
    static constexpr auto kGone = "This picture is not there any more.";
};

TEST_F(PreviewProblems, aWholePictureHasNone)
{
    openPreview(putPainting(u"one.png"_s, u"a lake"_s), u"a lake"_s);
    EXPECT_TRUE(waitFor([&] { return find(u"previewPicture"_s)->property("status").toInt() == 1; }));
    EXPECT_TRUE(waitFor([&] { return isSeen(u"upscaleButton"_s); }));
    EXPECT_FALSE(isSeen(u"previewProblem"_s));
}

TEST_F(PreviewProblems, aPictureThatCannotBeReadSaysSoAndOffersOnlyWhatCanBeDone)
{
    openPreview(putImage(u"broken.png"_s), u"Uncategorized"_s);
    EXPECT_TRUE(says(kUnreadable));
    EXPECT_EQ(offered(), QStringList{u"favoriteButton"_s});
}

TEST_F(PreviewProblems, aPictureOfWhichOnlyTheHeaderIsWholeSaysSo)
{
    const QString path = putPainting(u"half.png"_s, u"a lake"_s);
    QFile file(path);
    ASSERT_TRUE(file.resize(64));
    openPreview(path, u"a lake"_s);
    EXPECT_TRUE(says(kUnreadable));
    EXPECT_EQ(offered(), (QStringList{u"favoriteButton"_s, u"previewUsePromptButton"_s}));
}

TEST_F(PreviewProblems, aPictureThatGoesMeanwhileSaysSoAndOffersNothing)
{
    const QString path = putPainting(u"one.png"_s, QString());
    openPreview(path, u"Uncategorized"_s);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(says(kGone));
    EXPECT_EQ(offered(), QStringList());
    // Its menu would copy a file that is not there.
    QTest::keyClick(window, Qt::Key_Menu);
    EXPECT_FALSE(isSeen(u"menuCopy"_s));
    click(u"closeButton"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
}

TEST_F(PreviewProblems, fullScreenSaysThatThePictureHasJustGone)
{
    const QString path = putPainting(u"one.png"_s, u"a lake"_s);
    openPreview(path, u"a lake"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"upscaleButton"_s); }));
    ASSERT_TRUE(QFile::remove(path));
    click(u"fullScreenButton"_s);
    for (const QWindow *each : QGuiApplication::topLevelWindows()) {
        EXPECT_FALSE(each->objectName() == "viewer"_L1 && each->isVisible());
    }
    EXPECT_TRUE(says(kGone));
}

TEST_F(PreviewProblems, theNextPictureIsShownAgain)
{
    (void)putPainting(u"whole.png"_s, u"a lake"_s);
    const QString half = putPainting(u"half.png"_s, u"a lake"_s);
    QFile file(half);
    ASSERT_TRUE(file.resize(64));
    openPreview(half, u"a lake"_s);
    EXPECT_TRUE(says(kUnreadable));
    QTest::keyClick(window, find(u"rightButton"_s)->isEnabled() ? Qt::Key_Right : Qt::Key_Left);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"previewProblem"_s) && isSeen(u"setButton"_s); }));
    EXPECT_TRUE(waitFor([&] { return isSeen(u"upscaleButton"_s); }));
}

TEST_F(PreviewProblems, aTileThatCannotBeReadIsNotOfferedAsAWallpaper)
{
    const QString path = putImage(u"broken.png"_s);
    start();
    open();
    click(u"album Uncategorized"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path); }));
    ASSERT_TRUE(waitFor([&] { return find(u"tile "_s + path)->property("isBroken").toBool(); }));
    hover(middleOf(find(u"tile "_s + path)));
    ASSERT_TRUE(waitFor([&] { return isSeen(u"trash"_s); }));
    EXPECT_FALSE(isSeen(u"apply"_s));
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(u"tile "_s + path)));
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuDelete"_s); }));
    EXPECT_FALSE(isSeen(u"menuApply"_s));
}

} // namespace quorvane
