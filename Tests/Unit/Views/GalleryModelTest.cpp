#include "Views/Gallery/GalleryModel.h"

#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

TEST(PreviewList, isTheFirstAlbumOfThatIdOrElseTheHistory)
{
    const QStringList history{QStringLiteral("/a"), QStringLiteral("/b")};
    const std::vector<AlbumEntry> albums{{{QStringLiteral("Favorites"), {QStringLiteral("/a")}, true}, {}},
                                         {{QStringLiteral("Favorites"), {QStringLiteral("/b")}, false}, {}},
                                         {{QString(), {QStringLiteral("/b")}, false}, {}}};
    EXPECT_EQ(previewList(std::nullopt, albums, history), history);
    EXPECT_EQ(previewList(QStringLiteral("gone"), albums, history), history);
    EXPECT_EQ(previewList(QStringLiteral("Favorites"), albums, history), QStringList{QStringLiteral("/a")});
    EXPECT_EQ(previewList(QStringLiteral(""), albums, history), QStringList{QStringLiteral("/b")});
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
    const QString image = putImage(QStringLiteral("one.png"));
    ImageStore::savePrompt(QStringLiteral("a lake"), image);
    manager->reloadHistory();
    EXPECT_EQ(model->state(), GalleryModel::State::Albums);
    EXPECT_EQ(model->images(), QStringList{image});
    EXPECT_TRUE(waitFor([&] { return model->albumList()->rowCount() == 1; }));
    // The pictures of no album are in no tiles.
    EXPECT_EQ(model->imageList()->rowCount(), 0);
    model->openAlbum(QStringLiteral("a lake"));
    EXPECT_EQ(model->state(), GalleryModel::State::Album);
    EXPECT_TRUE(lists({image}));
    EXPECT_TRUE(model->canUsePrompt());
    model->closeAlbum();
    EXPECT_EQ(model->state(), GalleryModel::State::Albums);
    EXPECT_FALSE(model->canUsePrompt());
}

TEST_F(GalleryModelTest, deletingTheLastPictureOfTheOpenAlbumClosesIt)
{
    const QString image = putImage(QStringLiteral("one.png"));
    ImageStore::savePrompt(QStringLiteral("a lake"), image);
    (void)putImage(QStringLiteral("two.png"));
    attach().openAlbum(QStringLiteral("a lake"));
    EXPECT_TRUE(lists({image}));
    model->remove(image);
    manager->waitUntilIdle();
    EXPECT_TRUE(comesTo(GalleryModel::State::Albums));
    EXPECT_EQ(manager->history().size(), 1);
}

TEST_F(GalleryModelTest, thePromptIsNotOfferedInTheTwoSpecialAlbums)
{
    const QString image = putImage(QStringLiteral("one.png"));
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
    const QString image = putImage(QStringLiteral("one.png"));
    ImageStore::savePrompt(QString(), image);
    attach().openAlbum(QString());
    EXPECT_TRUE(lists({image}));
    EXPECT_EQ(model->state(), GalleryModel::State::Album);
}

TEST_F(GalleryModelTest, aFavouriteIsMarkedAtOnceAndItsAlbumFollows)
{
    const QString image = putImage(QStringLiteral("one.png"));
    attach().openAlbum(QStringLiteral("Uncategorized"));
    ASSERT_TRUE(lists({image}));
    const QAbstractItemModel *list = model->imageList();
    model->toggleFavorite(image);
    EXPECT_TRUE(list->data(list->index(0, 0), ImageListModel::IsFavoriteRole).toBool());
    EXPECT_TRUE(waitFor([&] { return model->albumList()->rowCount() == 2; }));
}

TEST_F(GalleryModelTest, anAlbumThatIsOpenedBeforeTheLastOneWasReadIsTheOneThatIsShown)
{
    const QString lake = putImage(QStringLiteral("one.png"));
    const QString hill = putImage(QStringLiteral("two.png"));
    ImageStore::savePrompt(QStringLiteral("a lake"), lake);
    ImageStore::savePrompt(QStringLiteral("a hill"), hill);
    attach().openAlbum(QStringLiteral("a lake"));
    model->openAlbum(QStringLiteral("a hill"));
    EXPECT_TRUE(lists({hill}));
    EXPECT_EQ(model->selectedAlbumId(), QStringLiteral("a hill"));
}

} // namespace quorvane
