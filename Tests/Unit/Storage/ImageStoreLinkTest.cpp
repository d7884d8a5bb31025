#include "Unit/Storage/ImageStoreFixture.h"

#include "Storage/ImageStore.h"
#include "Support/Results.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(ImageStoreTest, aLinkReplacesTheOneBefore)
{
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), text("/elsewhere/c.png")));
    EXPECT_EQ(content("variants.json"), "{\"a.png\":\"c.png\"}");
}

TEST_F(ImageStoreTest, theVariantOfAnOriginalIsItsCopyAndTheOtherWayRound)
{
    ASSERT_TRUE(put("a.png") && put("b.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_EQ(ImageStore::variant(at("a.png")), at("b.png"));
    EXPECT_EQ(ImageStore::variant(text("/elsewhere/a.png")), at("b.png"));
    EXPECT_EQ(ImageStore::variant(at("b.png")), at("a.png"));
    EXPECT_EQ(ImageStore::variant(at("c.png")), std::nullopt);
}

TEST_F(ImageStoreTest, aLinkForwardsGoesBeforeOneBackwards)
{
    ASSERT_TRUE(put("a.png") && put("b.png") && put("c.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("b.png"), at("c.png")));
    EXPECT_EQ(ImageStore::variant(at("b.png")), at("c.png"));
}

TEST_F(ImageStoreTest, aStaleLinkIsNoAnswerButALinkBackwardsIs)
{
    ASSERT_TRUE(put("a.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("gone.png")));
    EXPECT_EQ(ImageStore::variant(at("a.png")), std::nullopt);
    ASSERT_TRUE(put("small.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("small.png"), at("a.png")));
    EXPECT_EQ(ImageStore::variant(at("a.png")), at("small.png"));
    // Of several originals the first that exists.
    EXPECT_TRUE(ImageStore::saveVariantLink(at("another-gone.png"), at("a.png")));
    EXPECT_EQ(ImageStore::variant(at("a.png")), at("small.png"));
}

TEST_F(ImageStoreTest, favouritesAreSortedAndOccurOnce)
{
    EXPECT_TRUE(ImageStore::saveFavorite(text("b.png")));
    EXPECT_TRUE(ImageStore::saveFavorite(text("a10.png")));
    EXPECT_TRUE(ImageStore::saveFavorite(text("a2.png")));
    EXPECT_TRUE(ImageStore::saveFavorite(text("B.png")));
    EXPECT_EQ(content("favorites.json"), "[\"B.png\",\"a10.png\",\"a2.png\",\"b.png\"]");
    EXPECT_TRUE(ImageStore::removeFavorite(text("a10.png")));
    EXPECT_EQ(content("favorites.json"), "[\"B.png\",\"a2.png\",\"b.png\"]");
    ASSERT_TRUE(put("favorites.json", "[\"b.png\",\"a.png\",\"b.png\"]"));
    EXPECT_TRUE(ImageStore::removeFavorite(text("unknown.png")));
    EXPECT_EQ(content("favorites.json"), "[\"a.png\",\"b.png\"]");
}

TEST_F(ImageStoreTest, savingAFavouriteAgainRewritesTheSameContent)
{
    EXPECT_TRUE(ImageStore::saveFavorite(text("a.png")));
    const QByteArray before = content("favorites.json");
    const auto created = creationDate(at("favorites.json"));
    EXPECT_TRUE(ImageStore::saveFavorite(text("a.png")));
    EXPECT_EQ(content("favorites.json"), before);
    // A rewritten file is a new one, unless both were made in one tick of the clock; then ask again.
    for (int attempt = 0; attempt < 100'000 && creationDate(at("favorites.json")) == created; ++attempt) {
        EXPECT_TRUE(ImageStore::saveFavorite(text("a.png")));
    }
    EXPECT_GT(creationDate(at("favorites.json")), created);
}

TEST_F(ImageStoreTest, aPairGoesNoFurtherThanOneLinkButItsLinksAllGo)
{
    ASSERT_TRUE(put("a.png") && put("b.png") && put("c.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("b.png"), at("c.png")));
    EXPECT_TRUE(ImageStore::deleteImage(at("a.png")));
    EXPECT_EQ(ImageStore::allImages(), QStringList{at("c.png")});
    EXPECT_EQ(content("variants.json"), "{}");
}

TEST_F(ImageStoreTest, anImageLinkedToItselfIsItsOwnPartner)
{
    const QString path = valueOf(ImageStore::saveImage(u"a.png"_s, "a"));
    EXPECT_TRUE(ImageStore::saveVariantLink(path, path));
    EXPECT_EQ(ImageStore::variant(path), path);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(ImageStore::variant(path), std::nullopt);
}

TEST_F(ImageStoreTest, anImageLinkedToItselfIsDeletedOnce)
{
    ASSERT_TRUE(put("a.png"));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("a.png")));
    EXPECT_EQ(ImageStore::variant(at("a.png")), at("a.png"));
    EXPECT_TRUE(ImageStore::deleteImage(at("a.png")));
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_EQ(content("variants.json"), "{}");
}

TEST_F(ImageStoreTest, slashesBehindAnImageAreNotItsName)
{
    ASSERT_TRUE(put("a.png") && put("b.png"));
    EXPECT_TRUE(ImageStore::savePrompt(text("p"), at("a.png//")));
    EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.png/")));
    EXPECT_EQ(content("prompts.json"), "{\"a.png\":\"p\"}");
    EXPECT_EQ(content("variants.json"), "{\"a.png\":\"b.png\"}");
    EXPECT_TRUE(ImageStore::deleteImage(at("a.png/")));
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_EQ(content("prompts.json"), "{}");
    EXPECT_EQ(content("variants.json"), "{}");
}

TEST_F(ImageStoreTest, namesakesElsewhereAreNotInTheLibrary)
{
    const QString elsewhere = m_home.path() + text("/Downloads/a.png");
    ASSERT_TRUE(putFile(elsewhere) && put("a.png"));
    ASSERT_TRUE(QFile::link(m_home.library(), m_home.path() + text("/short")));
    ASSERT_TRUE(QFile::link(at("a.png"), m_home.path() + text("/Downloads/link.png")));
    ASSERT_TRUE(QFile::link(elsewhere, at("link.png")));
    for (const QString &path : {at("a.png"), at("a.png/"), at("gone.png"), at("link.png"), at("../Quorvane/a.png"),
                                m_home.path() + text("/short/a.png")}) {
        EXPECT_TRUE(ImageStore::isInLibrary(path)) << qPrintable(path);
    }
    for (const QString &path : {elsewhere, text("a.png"), QString(), text("/"), at("sub/a.png"), m_home.library(),
                                at(".."), m_home.path() + text("/Downloads/link.png")}) {
        EXPECT_FALSE(ImageStore::isInLibrary(path)) << qPrintable(path);
    }
}

TEST(ImageName, isTheLastComponent)
{
    EXPECT_EQ(imageName(text("/a/b.png/")), text("b.png"));
    EXPECT_EQ(imageName(text("b.png//")), text("b.png"));
    EXPECT_EQ(imageName(text("/b.png")), text("b.png"));
    EXPECT_EQ(imageName(text("/")), QString());
    EXPECT_EQ(imageName(text("/a/b/c.d.png")), text("c.d.png"));
    EXPECT_EQ(imageName(text("c.png")), text("c.png"));
    EXPECT_EQ(imageName(QString()), QString());
}

} // namespace quorvane
