#include "Unit/Views/PreviewModelFixture.h"

#include "Manager/SettingsKeys.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
