#include "Manager/Library/KeptPicture.h"

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class KeptPictureTest : public testing::Test
{
  protected:
    PrivateHome home;
};

TEST_F(KeptPictureTest, aPictureComesWithItsPromptAndItsLink)
{
    const auto original = keepPicture({u"a.jpg"_s, "small", u"a lake"_s, {}});
    ASSERT_TRUE(original);
    const auto copy = keepPicture({u"b.png"_s, "large", recordedPrompt(original->path), original->path});
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->path, home.library() + u"/b.png"_s);
    EXPECT_EQ(recordedPrompt(copy->path), u"a lake"_s);
    EXPECT_EQ(readTextMap(ImageStore::variantsPath()), (TextMap{{u"a.jpg"_s, u"b.png"_s}}));
}

TEST_F(KeptPictureTest, withoutAPromptNoneIsRecordedAndAnEmptyOneIsAPrompt)
{
    ASSERT_TRUE(keepPicture({u"a.jpg"_s, "a", std::nullopt, {}}));
    ASSERT_TRUE(keepPicture({u"b.jpg"_s, "b", QString(), {}}));
    EXPECT_EQ(readTextMap(ImageStore::promptsPath()), (TextMap{{u"b.jpg"_s, QString()}}));
}

TEST_F(KeptPictureTest, whatTakesTheNameOfItsOriginalIsLinkedToItself)
{
    const auto original = keepPicture({u"a.png"_s, "small", u"a lake"_s, {}});
    ASSERT_TRUE(original);
    const auto copy = keepPicture({u"a.png"_s, "large", u"a lake"_s, original->path});
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->path, original->path);
    EXPECT_EQ(readTextMap(ImageStore::variantsPath()), (TextMap{{u"a.png"_s, u"a.png"_s}}));
}

TEST_F(KeptPictureTest, ofAPictureThatCannotBeWrittenNothingIsRecorded)
{
    ASSERT_TRUE(QDir(ImageStore::directory()).mkpath(u"a.png/inside"_s));
    EXPECT_FALSE(keepPicture({u"a.png"_s, "a", u"a lake"_s, u"/b.png"_s}));
    EXPECT_TRUE(readTextMap(ImageStore::promptsPath()).empty());
    EXPECT_TRUE(readTextMap(ImageStore::variantsPath()).empty());
}

} // namespace quorvane
