#include "Views/Preview/PreviewModel.h"

#include "Manager/SettingsKeys.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QBuffer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

class PreviewModelTest : public ManagerTest
{
  protected:
    PreviewModel &attach()
    {
        start();
        model = std::make_unique<PreviewModel>();
        model->setManager(manager.get());
        return *model;
    }
    ~PreviewModelTest() override { model.reset(); }

    [[nodiscard]] static QString putPicture(const QString &name, int width)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage image(width, 4, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        EXPECT_TRUE(image.save(&buffer, "PNG"));
        return valueOf(ImageStore::saveImage(name, bytes));
    }

    /// Waits until everything is known of the picture that is open.
    [[nodiscard]] bool isRead() const
    {
        return waitFor([&] { return model->areRecordsRead(); });
    }

    std::unique_ptr<PreviewModel> model;
};

TEST_F(PreviewModelTest, itStepsWithoutGoingRoundAndNotFromAPictureThatIsNotInTheList)
{
    const QStringList list{u"/a"_s, u"/b"_s, u"/c"_s};
    attach().setList(list);
    model->goRight();
    EXPECT_EQ(model->previewURL(), QString());
    model->setPreviewURL(list[0]);
    EXPECT_FALSE(model->canGoLeft());
    model->goLeft();
    EXPECT_EQ(model->previewURL(), list[0]);
    model->goRight();
    model->goRight();
    EXPECT_EQ(model->previewURL(), list[2]);
    EXPECT_FALSE(model->canGoRight());
    model->goRight();
    EXPECT_EQ(model->previewURL(), list[2]);
    model->goLeft();
    EXPECT_EQ(model->previewURL(), list[1]);
    model->setPreviewURL(u"/elsewhere"_s);
    EXPECT_FALSE(model->canGoLeft());
    EXPECT_FALSE(model->canGoRight());
}

TEST_F(PreviewModelTest, onlyAPictureNarrowerThan4KWithoutAPartnerCanBeEnlarged)
{
    const QString narrow = putPicture(u"narrow.png"_s, 3839);
    const QString wide = putPicture(u"wide.png"_s, 3840);
    const QString broken = putImage(u"broken.png"_s);
    const QString paired = putPicture(u"paired.png"_s, 8);
    EXPECT_TRUE(ImageStore::saveVariantLink(paired, wide));
    attach();
    for (const auto &[url, can] : {std::pair{narrow, true}, {wide, false}, {broken, false}, {paired, false}}) {
        model->setPreviewURL(url);
        EXPECT_TRUE(isRead()) << url.toStdString();
        EXPECT_EQ(model->canUpscale(), can) << url.toStdString();
    }
    model->setPreviewURL(wide);
    // Not yet known to be this picture's.
    model->showOriginal();
    EXPECT_EQ(model->previewURL(), wide);
    EXPECT_TRUE(isRead() && model->hasOriginal());
    model->showOriginal();
    EXPECT_EQ(model->previewURL(), paired);
    EXPECT_TRUE(isRead());
    EXPECT_FALSE(model->hasOriginal());
}

TEST_F(PreviewModelTest, whileAnyPictureIsEnlargedNoneCanBe)
{
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    const QString one = putPicture(u"one.png"_s, 8);
    const QString two = putPicture(u"two.png"_s, 8);
    attach().setPreviewURL(one);
    EXPECT_TRUE(isRead());
    model->upscale();
    EXPECT_TRUE(model->isUpscaling());
    model->setPreviewURL(two);
    EXPECT_FALSE(model->isUpscaling());
    EXPECT_FALSE(model->canUpscale());
    manager->waitUntilIdle();
    // The copy replaces the picture it was made of, not another that is shown meanwhile.
    EXPECT_EQ(model->previewURL(), two);
    EXPECT_TRUE(isRead());
    EXPECT_TRUE(model->canUpscale());
}

TEST_F(PreviewModelTest, theCopyTakesThePlaceOfThePictureThatWasEnlarged)
{
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    const QString one = putPicture(u"one.png"_s, 8);
    attach().setPreviewURL(one);
    EXPECT_TRUE(isRead());
    model->upscale();
    manager->waitUntilIdle();
    EXPECT_EQ(model->previewURL(), result.file);
    EXPECT_TRUE(isRead());
    EXPECT_TRUE(model->hasOriginal());
}

TEST_F(PreviewModelTest, aFailedEnlargementChangesNothing)
{
    const QString one = putPicture(u"one.png"_s, 8);
    attach().setPreviewURL(one);
    EXPECT_TRUE(isRead());
    model->upscale();
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(model->previewURL(), one);
    EXPECT_TRUE(isRead());
    EXPECT_TRUE(model->canUpscale());
}

TEST_F(PreviewModelTest, aPromptIsOfferedOnlyWhereOneIsRecorded)
{
    const QString one = putPicture(u"one.png"_s, 8);
    attach().setPreviewURL(one);
    EXPECT_TRUE(isRead());
    EXPECT_FALSE(model->canUsePrompt());
    model->usePrompt();
    EXPECT_TRUE(model->isOpen());
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, one));
    manager->reloadHistory();
    EXPECT_TRUE(isRead());
    EXPECT_TRUE(model->canUsePrompt());
    QString chosen;
    QObject::connect(model.get(), &PreviewModel::promptChosen, [&](const QString &prompt) { chosen = prompt; });
    model->usePrompt();
    EXPECT_EQ(chosen, u"a lake"_s);
    EXPECT_FALSE(model->isOpen());
}

TEST_F(PreviewModelTest, anOriginalThatIsGoneIsNotOffered)
{
    const QString original = putPicture(u"one.png"_s, 100);
    const QString copy = putPicture(u"two.png"_s, 3840);
    (void)ImageStore::saveVariantLink(imageName(original), imageName(copy));
    attach().setPreviewURL(copy);
    ASSERT_TRUE(isRead());
    EXPECT_TRUE(model->hasOriginal());
    ASSERT_TRUE(QFile::remove(original));
    model->refresh();
    ASSERT_TRUE(isRead());
    EXPECT_FALSE(model->hasOriginal());
}

TEST_F(PreviewModelTest, aProblemIsToldOfThePictureThatIsOpenAndOfNoOther)
{
    const QString whole = putPicture(u"one.png"_s, 100);
    const QString broken = putImage(u"broken.png"_s);
    attach().setPreviewURL(broken);
    EXPECT_EQ(model->problem(), QString());
    ASSERT_TRUE(isRead());
    EXPECT_EQ(model->problem(), u"This picture cannot be read."_s);
    EXPECT_TRUE(model->isThere());
    model->setPreviewURL(whole);
    EXPECT_EQ(model->problem(), QString());
    ASSERT_TRUE(isRead());
    EXPECT_EQ(model->problem(), QString());
    EXPECT_TRUE(model->canUpscale());
    model->setCameEmpty(true);
    ASSERT_TRUE(isRead());
    EXPECT_EQ(model->problem(), u"This picture cannot be read."_s);
    EXPECT_FALSE(model->canUpscale());
    ASSERT_TRUE(QFile::remove(whole));
    model->refresh();
    ASSERT_TRUE(isRead());
    EXPECT_EQ(model->problem(), u"This picture is not there any more."_s);
    EXPECT_FALSE(model->isThere());
}

} // namespace quorvane
