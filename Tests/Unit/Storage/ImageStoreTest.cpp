#include "Storage/ImageStore.h"
#include "Storage/CreationDate.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <dirent.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class ImageStoreTest : public testing::Test
{
  protected:
    [[nodiscard]] QString at(const char *name) const { return m_home.library() + '/'_L1 + QString::fromUtf8(name); }
    [[nodiscard]] bool put(const char *name, const QByteArray &content = "x") const
    {
        return putFile(at(name), content);
    }
    [[nodiscard]] QByteArray content(const char *name) const { return contentOf(at(name)); }

    /// Makes a file that is provably younger than the file before.
    [[nodiscard]] bool putLater(const char *name, const char *before) const
    {
        for (int attempt = 0; attempt < 100'000; ++attempt) {
            if (!put(name)) {
                return false;
            }
            if (creationDate(at(name)) > creationDate(at(before))) {
                return true;
            }
            QFile::remove(at(name));
        }
        return false;
    }

    [[nodiscard]] static QStringList sorted(QStringList list)
    {
        list.sort();
        return list;
    }

    PrivateHome m_home;
};

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST_F(ImageStoreTest, theFolderIsMadeByAskingForIt)
{
    EXPECT_EQ(ImageStore::directory(), m_home.library());
    EXPECT_TRUE(QFileInfo(m_home.library()).isDir());
}

TEST_F(ImageStoreTest, aMissingFolderHasNoImagesAndExistsAfterwards)
{
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_TRUE(QFileInfo(m_home.library()).isDir());
}

TEST_F(ImageStoreTest, onlyTheEndingSaysWhatAnImageIs)
{
    for (const char *name : {"photo.PNG", "a.JpEg", "b.webp", "d.jpg", "two.dots.png", "é 日.png"}) {
        ASSERT_TRUE(put(name));
    }
    for (const char *name :
         {"c.gif", "d.heic", ".hidden.png", ".png", "prompts.json", "png", "e.png.txt", "f.", "g.pngx", "h.xpng"}) {
        ASSERT_TRUE(put(name));
    }
    ASSERT_TRUE(QDir().mkpath(at("x.png")));
    ASSERT_TRUE(put("x.png/inside.png"));
    ASSERT_TRUE(QFile::link(at("nowhere"), at("dangling.jpeg")));
    EXPECT_EQ(sorted(ImageStore::allImages()),
              sorted({at("photo.PNG"), at("a.JpEg"), at("b.webp"), at("d.jpg"), at("two.dots.png"), at("é 日.png"),
                      at("x.png"), at("dangling.jpeg")}));
}

TEST_F(ImageStoreTest, theNewestImageComesFirst)
{
    ASSERT_TRUE(put("b.png"));
    ASSERT_TRUE(putLater("c.png", "b.png"));
    ASSERT_TRUE(putLater("a.png", "c.png"));
    EXPECT_EQ(ImageStore::allImages(), (QStringList{at("a.png"), at("c.png"), at("b.png")}));
}

TEST_F(ImageStoreTest, equalDatesKeepTheOrderOfTheListing)
{
    for (int number = 0; number < 300; ++number) {
        ASSERT_TRUE(put(QByteArray::number(number * 7919 % 300).append(".png").constData()));
    }
    // The plain way: the listing as it is, and a stable sort that reads both dates at every comparison.
    QStringList expected;
    DIR *folder = ::opendir(QFile::encodeName(m_home.library()).constData());
    ASSERT_NE(folder, nullptr);
    while (const dirent *entry = ::readdir(folder)) {
        if (const QString name = QFile::decodeName(entry->d_name); name.endsWith(text(".png"))) {
            expected.append(m_home.library() + '/'_L1 + name);
        }
    }
    ::closedir(folder);
    std::stable_sort(expected.begin(), expected.end(),
                     [](const QString &a, const QString &b) { return creationDate(a) > creationDate(b); });
    ASSERT_EQ(expected.size(), 300);
    EXPECT_EQ(ImageStore::allImages(), expected);
}

TEST_F(ImageStoreTest, anImageIsSavedUnderItsNameAndReplacesTheOneBefore)
{
    EXPECT_EQ(valueOf(ImageStore::saveImage(text("a.png"), "one")), at("a.png"));
    EXPECT_EQ(valueOf(ImageStore::saveImage(text("a.png"), "two")), at("a.png"));
    EXPECT_EQ(content("a.png"), "two");
    EXPECT_EQ(ImageStore::allImages(), QStringList{at("a.png")});
}

TEST_F(ImageStoreTest, onlyAPlainFileNameCanBeSaved)
{
    for (const QString &name : {QString(), text("."), text(".."), text("../a.png"), text("a/b.png"), text("/a.png"),
                                text("a.png") + QChar(u'\0')}) {
        EXPECT_FALSE(ImageStore::saveImage(name, "x")) << qPrintable(name);
    }
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
}

TEST_F(ImageStoreTest, aPromptIsRecordedUnderTheFileNameWhateverThePath)
{
    EXPECT_TRUE(ImageStore::savePrompt(text("first"), at("b.png")));
    EXPECT_TRUE(ImageStore::savePrompt(text("a \"lake\"\n"), text("/elsewhere/a.png")));
    EXPECT_TRUE(ImageStore::savePrompt(text("second"), text("b.png")));
    EXPECT_EQ(content("prompts.json"), "{\"a.png\":\"a \\\"lake\\\"\\n\",\"b.png\":\"second\"}");
}

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

TEST_F(ImageStoreTest, aWrongSideFileIsEmptyAndReplacedAtTheNextWrite)
{
    ASSERT_TRUE(put("variants.json", "{\"a.png\":\"b.png\",\"c.png\":5}") && put("b.png"));
    EXPECT_EQ(ImageStore::variant(at("a.png")), std::nullopt);
    EXPECT_TRUE(ImageStore::saveVariantLink(at("d.png"), at("e.png")));
    EXPECT_EQ(content("variants.json"), "{\"d.png\":\"e.png\"}");

    ASSERT_TRUE(put("favorites.json", "not JSON"));
    EXPECT_TRUE(ImageStore::saveFavorite(text("a.png")));
    EXPECT_EQ(content("favorites.json"), "[\"a.png\"]");

    ASSERT_TRUE(put("prompts.json", "{\"a.png\":"));
    EXPECT_TRUE(ImageStore::deleteImage(at("z.png")));
    EXPECT_EQ(content("prompts.json"), "{}");
}

TEST_F(ImageStoreTest, onlyNamesOfImagesAreFollowed)
{
    ASSERT_TRUE(put("a.png") && put("notes.txt") && put("favorites.json", "[\"b.png\"]"));
    for (const char *name : {"favorites.json", "notes.txt", "variants.json", ".lock", ".hidden.png"}) {
        ASSERT_TRUE(put("a.png") && put(".hidden.png"));
        ASSERT_TRUE(put("variants.json", QByteArray("{\"a.png\":\"") + name + "\",\"" + name + "\":\"a.png\"}"));
        EXPECT_EQ(ImageStore::variant(at("a.png")), std::nullopt) << name;
        EXPECT_TRUE(ImageStore::deleteImage(at("a.png"))) << name;
        EXPECT_EQ(content("favorites.json"), "[\"b.png\"]") << name;
        EXPECT_TRUE(QFileInfo::exists(at("notes.txt")) && QFileInfo::exists(at(".hidden.png"))) << name;
        EXPECT_EQ(content("variants.json"), "{}") << name;
    }
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

TEST_F(ImageStoreTest, whatCannotBeDeletedIsToldByItsName)
{
    ASSERT_TRUE(put("x.png/inside"));
    const Result<> deleted = ImageStore::deleteImage(at("x.png"));
    ASSERT_FALSE(deleted);
    EXPECT_EQ(deleted.failure().words, text("x.png could not be deleted: Directory not empty"));
    ASSERT_TRUE(QFile::remove(at("x.png/inside")));
    EXPECT_TRUE(ImageStore::deleteImage(at("x.png")));
    EXPECT_FALSE(QFileInfo::exists(at("x.png")));
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
