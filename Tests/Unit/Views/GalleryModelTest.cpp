#include "Views/Gallery/GalleryModel.h"

#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(PreviewList, isTheFirstAlbumOfThatIdOrElseTheHistory)
{
    const QStringList history{u"/a"_s, u"/b"_s};
    const std::vector<AlbumEntry> albums{{{u"Favorites"_s, {u"/a"_s}, true}, {}},
                                         {{u"Favorites"_s, {u"/b"_s}, false}, {}},
                                         {{QString(), {u"/b"_s}, false}, {}}};
    EXPECT_EQ(previewList(std::nullopt, albums, history), history);
    EXPECT_EQ(previewList(u"gone"_s, albums, history), history);
    EXPECT_EQ(previewList(u"Favorites"_s, albums, history), QStringList{u"/a"_s});
    EXPECT_EQ(previewList(u""_s, albums, history), QStringList{u"/b"_s});
}

TEST(GalleryColumns, areAtLeast220PointsWideAnd20Apart)
{
    EXPECT_EQ(GalleryModel::columns(0), 1);
    EXPECT_EQ(GalleryModel::columns(219), 1);
    EXPECT_EQ(GalleryModel::columns(459), 1);
    EXPECT_EQ(GalleryModel::columns(460), 2);
    EXPECT_EQ(GalleryModel::columns(699), 2);
    EXPECT_EQ(GalleryModel::columns(700), 3);
}

class GalleryModelTest : public ManagerTest
{
  protected:
    GalleryModel &attach()
    {
        start();
        model = std::make_unique<GalleryModel>();
        model->setManager(manager.get());
        return *model;
    }
    ~GalleryModelTest() override { model.reset(); }

    /// Waits until the model shows that.
    [[nodiscard]] bool comesTo(GalleryModel::State state) const
    {
        return waitFor([&] { return model->state() == state; });
    }
    [[nodiscard]] bool lists(const QStringList &images) const
    {
        return waitFor([&] { return model->images() == images && model->imageList()->rowCount() == images.size(); });
    }

    std::unique_ptr<GalleryModel> model;
};

TEST_F(GalleryModelTest, itGoesFromEmptyToAlbumsToOneAlbumAndBack)
{
    EXPECT_EQ(attach().state(), GalleryModel::State::Reading);
    EXPECT_TRUE(comesTo(GalleryModel::State::Empty));
    const QString image = putImage(u"one.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, image));
    manager->reloadHistory();
    EXPECT_EQ(model->state(), GalleryModel::State::Albums);
    EXPECT_EQ(model->images(), QStringList{image});
    EXPECT_TRUE(waitFor([&] { return model->albumList()->rowCount() == 1; }));
    // The pictures of no album are in no tiles.
    EXPECT_EQ(model->imageList()->rowCount(), 0);
    model->openAlbum(u"a lake"_s);
    EXPECT_EQ(model->state(), GalleryModel::State::Album);
    EXPECT_TRUE(lists({image}));
    EXPECT_TRUE(model->canUsePrompt());
    model->closeAlbum();
    EXPECT_EQ(model->state(), GalleryModel::State::Albums);
    EXPECT_FALSE(model->canUsePrompt());
}

TEST_F(GalleryModelTest, deletingTheLastPictureOfTheOpenAlbumClosesIt)
{
    const QString image = putImage(u"one.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, image));
    (void)putImage(u"two.png"_s);
    attach().openAlbum(u"a lake"_s);
    EXPECT_TRUE(lists({image}));
    model->remove(image);
    manager->waitUntilIdle();
    EXPECT_TRUE(comesTo(GalleryModel::State::Albums));
    EXPECT_EQ(manager->history().size(), 1);
}

TEST_F(GalleryModelTest, thePromptIsNotOfferedInTheTwoSpecialAlbums)
{
    const QString image = putImage(u"one.png"_s);
    attach().toggleFavorite(image);
    for (const char *id : {"Favorites", "Uncategorized"}) {
        model->openAlbum(QLatin1String(id));
        EXPECT_TRUE(lists({image}));
        EXPECT_EQ(model->state(), GalleryModel::State::Album);
        EXPECT_FALSE(model->canUsePrompt()) << id;
    }
}

TEST_F(GalleryModelTest, theAlbumOfTheEmptyPromptCanBeOpenedToo)
{
    const QString image = putImage(u"one.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(QString(), image));
    attach().openAlbum(QString());
    EXPECT_TRUE(lists({image}));
    EXPECT_EQ(model->state(), GalleryModel::State::Album);
}

TEST_F(GalleryModelTest, aFavouriteIsMarkedAtOnceAndItsAlbumFollows)
{
    const QString image = putImage(u"one.png"_s);
    attach().openAlbum(u"Uncategorized"_s);
    ASSERT_TRUE(lists({image}));
    const QAbstractItemModel *list = model->imageList();
    model->toggleFavorite(image);
    EXPECT_TRUE(list->data(list->index(0, 0), ImageListModel::IsFavoriteRole).toBool());
    EXPECT_TRUE(waitFor([&] { return model->albumList()->rowCount() == 2; }));
}

TEST_F(GalleryModelTest, anAlbumThatIsOpenedBeforeTheLastOneWasReadIsTheOneThatIsShown)
{
    const QString lake = putImage(u"one.png"_s);
    const QString hill = putImage(u"two.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, lake));
    EXPECT_TRUE(ImageStore::savePrompt(u"a hill"_s, hill));
    attach().openAlbum(u"a lake"_s);
    model->openAlbum(u"a hill"_s);
    EXPECT_TRUE(lists({hill}));
    EXPECT_EQ(model->selectedAlbumId(), u"a hill"_s);
}

} // namespace quorvane
