// What was deleted in a window can be brought back there, for a while.

#include "UI/ViewFixture.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvane {

class UndoView : public ViewTest
{
  protected:
    void openAlbum(int count)
    {
        for (int number = 0; number < count; ++number) {
            (void)putPainting(u"%1.png"_s.arg(number, 3, 10, '0'_L1), u"a lake"_s, {64, 40});
        }
        start();
        open();
        click(u"album a lake"_s);
        ASSERT_TRUE(waitFor([&] { return isReachable(tile(0)); }));
    }
    void openSettings()
    {
        start();
        open(u"SettingsWindow"_s);
    }
    [[nodiscard]] QString label(const char *field) const { return textOf(find(QLatin1String(field))); }
    [[nodiscard]] QString file(int number) const { return manager->albums().back().images.value(number); }
    [[nodiscard]] QString tile(int number) const { return u"tile "_s + file(number); }

    void deleteByKey(int number)
    {
        click(tile(number));
        ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
        QTest::keyClick(window, Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
        QTest::keyClick(window, Qt::Key_Delete);
        ASSERT_TRUE(waitFor([&] { return isSeen(u"undoBar"_s); }));
    }
    [[nodiscard]] QString ringed() const
    {
        const auto *item = find(u"imageGrid"_s)->property("currentItem").value<QQuickItem *>();
        return item != nullptr ? item->property("url").toString() : QString();
    }
};

TEST_F(UndoView, aPictureComesBackAtAPressAndHasTheRing)
{
    openAlbum(3);
    const QString path = file(1);
    deleteByKey(1);
    EXPECT_FALSE(QFileInfo::exists(path));
    const QPoint button = middleOf(find(u"undoButton"_s));
    click(u"undoButton"_s);
    // The second press of a double click does nothing to what is shown there now.
    QTest::mouseClick(window, Qt::LeftButton, {}, button);
    EXPECT_FALSE(isSeen(u"preview"_s));
    EXPECT_TRUE(find(u"imageGrid"_s)->property("activeFocus").toBool());
    EXPECT_TRUE(waitFor([&] { return manager->history().size() == 3 && ringed() == path; }));
    EXPECT_TRUE(QFileInfo::exists(path));
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"undoBar"_s); }));
}

TEST_F(UndoView, ctrlZDoesTheSameAndTakesNoTextBack)
{
    openAlbum(2);
    click(u"promptEditor"_s);
    type(u"my words"_s);
    const QString path = file(0);
    deleteByKey(0);
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return QFileInfo::exists(path) && manager->history().size() == 2; }));
    EXPECT_EQ(manager->prompt(), u"my words"_s);
}

TEST_F(UndoView, theLastPictureOfAnAlbumComesBackFromTheListOfAlbums)
{
    openAlbum(1);
    const QString path = file(0);
    deleteByKey(0);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"emptyState"_s); }));
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return QFileInfo::exists(path) && isReachable(u"album a lake"_s); }));
}

TEST_F(UndoView, theOfferGoesAfterTenSeconds)
{
    openAlbum(2);
    deleteByKey(0);
    clock.pass(10s);
    EXPECT_FALSE(isSeen(u"undoBar"_s));
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
}

TEST_F(UndoView, theBarCoversNoTile)
{
    openAlbum(12);
    deleteByKey(0);
    const QQuickItem *bar = find(u"undoBar"_s);
    EXPECT_LE(placeOf(u"imageGrid"_s).bottom(), bar->mapRectToScene(QRectF(0, 0, 1, 1)).top());
}

TEST_F(UndoView, aDoubleClickOnTheTrashDeletesOnePicture)
{
    openAlbum(4);
    hover(middleOf(find(tile(0))));
    ASSERT_TRUE(waitFor([&] { return isReachable(u"trash"_s); }));
    const QPoint trash = middleOf(find(u"trash"_s));
    QTest::mouseClick(window, Qt::LeftButton, {}, trash);
    manager->waitUntilIdle();
    ASSERT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->property("count").toInt() == 3; }));
    hover(trash + QPoint(1, 0));
    ASSERT_TRUE(waitFor([&] { return isSeen(u"trash"_s); }));
    QTest::mouseClick(window, Qt::LeftButton, {}, trash);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 3);
}

TEST_F(UndoView, aRemovedKeyComesBack)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"grok"_s));
    openSettings();
    click(u"grokTrash"_s);
    EXPECT_EQ(Keychain::load(u"grok"_s), std::nullopt);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"undoBar"_s); }));
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Keychain::load(u"grok"_s), u"KEY"_s);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"grokSaved"_s) && label("grokField") == u"KEY"_s; }));
    EXPECT_FALSE(isSeen(u"undoBar"_s));
}

TEST_F(UndoView, aRemovedKeyDoesNotReplaceTheOneThatCameAfterIt)
{
    EXPECT_TRUE(Keychain::save(u"OLD"_s, u"grok"_s));
    openSettings();
    click(u"grokTrash"_s);
    click(u"grokField"_s);
    type(u"NEW"_s);
    QTest::keyClick(window, Qt::Key_Return);
    click(u"undoButton"_s);
    EXPECT_EQ(Keychain::load(u"grok"_s), u"NEW"_s);
}

} // namespace quorvane
