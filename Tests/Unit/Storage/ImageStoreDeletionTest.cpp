#include "Unit/Storage/ImageStoreFixture.h"

#include "Storage/ImageStore.h"

namespace quorvane {

TEST_F(ImageStoreTest, deletingAnOriginalRemovesItsCopyAndEveryEntry)
{
    ASSERT_TRUE(put("a.png") && put("b.png") && put("other.png"));
    for (const char *name : {"a.png", "b.png", "other.png"}) {
        EXPECT_TRUE(ImageStore::savePrompt(text("p"), at(name)));
        EXPECT_TRUE(ImageStore::saveFavorite(text(name)));
    }
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("other.png"), at("third.png")));
    EXPECT_TRUE(ImageStore::deleteImage(at("a.png")));
    EXPECT_EQ(ImageStore::allImages(), QStringList{at("other.png")});
    EXPECT_EQ(content("prompts.json"), "{\"other.png\":\"p\"}");
    EXPECT_EQ(content("favorites.json"), "[\"other.png\"]");
    EXPECT_EQ(content("variants.json"), "{\"other.png\":\"third.png\"}");
}

TEST_F(ImageStoreTest, deletingTheUpscaledCopyRemovesItsOriginalsToo)
{
    ASSERT_TRUE(put("a.png") && put("a2.png") && put("b.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a2.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::deleteImage(at("b.png")));
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_EQ(content("variants.json"), "{}");
}

TEST_F(ImageStoreTest, deletingRewritesThePromptsAlwaysAndTheOthersOnlyWhenTheyNamedTheFile)
{
    // The white space tells a file that was written anew from one that was left alone.
    ASSERT_TRUE(put("prompts.json", "{ \"other.png\" : \"p\" }"));
    ASSERT_TRUE(put("favorites.json", "[ \"other.png\", \"other.png\" ]"));
    ASSERT_TRUE(put("variants.json", "{ \"other.png\" : \"third.png\" }"));
    EXPECT_TRUE(ImageStore::deleteImage(at("a.png")));
    EXPECT_EQ(content("prompts.json"), "{\"other.png\":\"p\"}");
    EXPECT_EQ(content("favorites.json"), "[ \"other.png\", \"other.png\" ]");
    EXPECT_EQ(content("variants.json"), "{ \"other.png\" : \"third.png\" }");
}

TEST_F(ImageStoreTest, deletingWhatIsGoneStillCleansTheEntries)
{
    EXPECT_TRUE(ImageStore::savePrompt(text("p"), at("gone.png")));
    EXPECT_TRUE(ImageStore::saveFavorite(text("gone.png")));
    EXPECT_TRUE(ImageStore::deleteImage(at("gone.png")));
    EXPECT_EQ(content("prompts.json"), "{}");
    EXPECT_EQ(content("favorites.json"), "[]");
    EXPECT_FALSE(QFileInfo::exists(at("variants.json")));
}

TEST_F(ImageStoreTest, deletingAFileElsewhereRemovesThatFileAndTheEntriesOfItsName)
{
    const QString elsewhere = m_home.path() + text("/a.png");
    ASSERT_TRUE(putFile(elsewhere) && put("a.png") && put("b.png"));
    EXPECT_TRUE(ImageStore::savePrompt(text("p"), at("a.png")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::deleteImage(elsewhere));
    EXPECT_FALSE(QFileInfo::exists(elsewhere));
    EXPECT_EQ(ImageStore::allImages(), QStringList{at("a.png")});
    EXPECT_EQ(content("prompts.json"), "{}");
    EXPECT_EQ(content("variants.json"), "{}");
}

TEST_F(ImageStoreTest, noEntryLeadsADeletionOutOfTheLibrary)
{
    const QString treasure = m_home.path() + text("/treasure.txt");
    ASSERT_TRUE(putFile(treasure) && put("a.png") && put("sub/b.png"));
    for (const char *value : {"../../treasure.txt", "", ".", "..", "sub/b.png", "sub", "/"}) {
        EXPECT_TRUE(ImageStore::saveVariantLink(at("keep.png"), at("keep2.png")));
        ASSERT_TRUE(put("variants.json", QByteArray("{\"a.png\":\"") + value + "\",\"" + value + "\":\"a.png\"}"));
        EXPECT_EQ(ImageStore::variant(at("a.png")), std::nullopt);
        EXPECT_TRUE(ImageStore::deleteImage(at("a.png")));
        EXPECT_EQ(content("variants.json"), "{}") << value;
    }
    EXPECT_TRUE(QFileInfo::exists(treasure));
    EXPECT_TRUE(QFileInfo::exists(at("sub/b.png")));
    EXPECT_TRUE(QFileInfo(m_home.library()).isDir());
}

} // namespace quorvane
