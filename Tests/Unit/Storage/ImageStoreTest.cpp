#include "Unit/Storage/ImageStoreFixture.h"

#include "Storage/ImageStore.h"
#include "Support/Results.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
