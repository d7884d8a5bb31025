#include "Views/Gallery/ImageListModel.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class ImageListModelTest : public testing::Test
{
  protected:
    ImageListModelTest() { model.setPictures({entry("/a.png"), entry("/b.png"), entry("/c.png")}); }

    [[nodiscard]] static PictureEntry entry(const char *path, qint64 sizeBytes = 1)
    {
        return {QString::fromLatin1(path), {1, sizeBytes}, u"a lake"_s, std::nullopt};
    }
    /// The rows that were told to be different, as "1 2".
    [[nodiscard]] QString changedRows() const
    {
        QStringList rows;
        for (const QList<QVariant> &each : changed) {
            EXPECT_EQ(each.at(0).toModelIndex(), each.at(1).toModelIndex());
            rows.append(QString::number(each.at(0).toModelIndex().row()));
        }
        return rows.join(' '_L1);
    }

    ImageListModel model;
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
    QSignalSpy added{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};
};

TEST_F(ImageListModelTest, theSameAgainIsNoNews)
{
    changed.clear();
    added.clear();
    model.setPictures({entry("/a.png"), entry("/b.png"), entry("/c.png")});
    EXPECT_EQ(changed.size() + added.size() + removed.size() + reset.size(), 0);
}

TEST_F(ImageListModelTest, aNewPictureIsOneRowAndTheOthersStay)
{
    added.clear();
    model.setPictures({entry("/new.png"), entry("/a.png"), entry("/b.png"), entry("/c.png")});
    ASSERT_EQ(added.size(), 1);
    EXPECT_EQ(added.first().at(1).toInt(), 0);
    EXPECT_EQ(added.first().at(2).toInt(), 0);
    EXPECT_EQ(changed.size() + removed.size() + reset.size(), 0);
}

TEST_F(ImageListModelTest, onlyAFileWithAnotherContentIsLoadedAgain)
{
    const QVariant before = model.data(model.index(1), ImageListModel::ThumbnailRole);
    model.setPictures({entry("/a.png"), entry("/b.png", 2), entry("/c.png")});
    EXPECT_EQ(changedRows(), u"1"_s);
    EXPECT_NE(model.data(model.index(1), ImageListModel::ThumbnailRole), before);
}

TEST_F(ImageListModelTest, onlyTheTileThatWasToggledHearsOfIt)
{
    model.setFavorites({u"a.png"_s, u"gone.png"_s});
    EXPECT_EQ(changedRows(), u"0"_s);
    EXPECT_TRUE(model.data(model.index(0), ImageListModel::IsFavoriteRole).toBool());
    changed.clear();
    model.setFavorites({u"c.png"_s});
    EXPECT_EQ(changedRows(), u"0 2"_s);
}

TEST_F(ImageListModelTest, onlyTheTilesOfTheEnlargementHearOfIt)
{
    model.setUpscaling(u"/b.png"_s);
    EXPECT_EQ(changedRows(), u"1"_s);
    changed.clear();
    model.setUpscaling(QString());
    EXPECT_EQ(changedRows(), u"1"_s);
    EXPECT_FALSE(model.data(model.index(1), ImageListModel::IsUpscalingRole).toBool());
}

TEST_F(ImageListModelTest, whatIsReadOutTellsWhatAPictureIs)
{
    const auto spoken = [this](int row) { return model.data(model.index(row), ImageListModel::SpokenRole).toString(); };
    EXPECT_EQ(spoken(0), u"a lake"_s);
    model.setFavorites({u"a.png"_s});
    model.setCurrentWallpaper(u"/a.png"_s);
    model.setWidths({{u"/a.png"_s, {{1, 1}, 3840}}, {u"/b.png"_s, {{1, 1}, 3839}}});
    EXPECT_EQ(spoken(0), u"a lake, favorite, 4K, current wallpaper"_s);
    EXPECT_EQ(spoken(1), u"a lake"_s);
    changed.clear();
    model.setCurrentWallpaper(u"/c.png"_s);
    EXPECT_EQ(changedRows(), u"0 2"_s);
    EXPECT_EQ(spoken(2), u"a lake, current wallpaper"_s);
}

} // namespace quorvane
