#include "Unit/Views/PreviewModelFixture.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

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

TEST_F(PreviewModelTest, whatIsNotKnownYetIsNotOfferedToBeEnlarged)
{
    const QString one = putPicture(u"one.png"_s, 100);
    attach().setPreviewURL(one);
    EXPECT_FALSE(model->canUpscale());
    ASSERT_TRUE(isRead());
    EXPECT_TRUE(model->canUpscale());
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
