#include "Storage/Deletion.h"

#include "Storage/ImageStore.h"
#include "Support/SmallDisk.h"
#include "Unit/Storage/ImageStoreFixture.h"

#include <QDir>

namespace quorvane {

class DeletionTest : public ImageStoreTest
{
  protected:
    DeletionTest()
    {
        EXPECT_TRUE(put("a.png", "small") && put("b.jpg", "large") && put("other.png", "other"));
        for (const char *name : {"a.png", "b.jpg", "other.png"}) {
            EXPECT_TRUE(ImageStore::savePrompt(text("prompt of ") + text(name), at(name)));
            EXPECT_TRUE(ImageStore::saveFavorite(text(name)));
        }
        EXPECT_TRUE(ImageStore::saveVariantLink(at("a.png"), at("b.jpg")));
        EXPECT_TRUE(ImageStore::saveVariantLink(at("other.png"), at("third.png")));
    }

    /// Everything in the library but the lock, hidden files and folders, too, with what is in each.
    [[nodiscard]] std::map<QString, QByteArray> everything() const
    {
        std::map<QString, QByteArray> files;
        for (const QFileInfo &entry :
             QDir(m_home.library()).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
            if (entry.fileName() != u".lock"_s) {
                files[entry.fileName()] = entry.isDir() ? QByteArray("folder") : contentOf(entry.filePath());
            }
        }
        return files;
    }

    [[nodiscard]] QStringList setAside() const
    {
        return QDir(m_home.library()).entryList({u".deleted.*"_s}, QDir::AllEntries | QDir::Hidden);
    }
};

TEST_F(DeletionTest, leavesWhatADeletionForGoodLeavesAndBringsAllOfItBack)
{
    const auto before = everything();
    const auto dates = creationDate(at("a.png"));
    Deletion::Outcome outcome = Deletion::of({at("b.jpg")});
    EXPECT_TRUE(outcome.result);
    ASSERT_TRUE(outcome.deletion);
    EXPECT_EQ(ImageStore::allImages(), QStringList{at("other.png")});
    EXPECT_EQ(content("prompts.json"), "{\"other.png\":\"prompt of other.png\"}");
    EXPECT_EQ(content("favorites.json"), "[\"other.png\"]");
    EXPECT_EQ(content("variants.json"), "{\"other.png\":\"third.png\"}");

    EXPECT_TRUE(outcome.deletion->undo());
    outcome.deletion.reset();
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(creationDate(at("a.png")), dates);
}

TEST_F(DeletionTest, isForGoodOnceNobodyWantsItAnyMore)
{
    Deletion::Outcome outcome = Deletion::of({at("a.png"), at("other.png")});
    EXPECT_EQ(setAside().size(), 1);
    outcome.deletion.reset();
    EXPECT_EQ(setAside(), QStringList());
    EXPECT_EQ(content("prompts.json"), "{}");
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
}

TEST_F(DeletionTest, goesAtTheNextStartWhenItsProgramWasKilledAndOnlyThen)
{
    Deletion::Outcome outcome = Deletion::of({at("a.png")});
    ASSERT_TRUE(QDir().mkpath(at(".deleted.AbCdEf")) && put(".deleted.AbCdEf/0", "left by a killed program"));
    ASSERT_TRUE(QDir().mkpath(at(".deleted.by-hand")));
    Deletion::removeAbandoned();
    EXPECT_FALSE(QFileInfo::exists(at(".deleted.AbCdEf")));
    EXPECT_TRUE(QFileInfo::exists(at(".deleted.by-hand"))); // No name of ours.
    EXPECT_TRUE(outcome.deletion->undo());
    EXPECT_EQ(content("a.png"), "small");
}

TEST_F(DeletionTest, leavesAloneWhatTookTheNameOfAPictureAndCanBeTriedAgain)
{
    Deletion::Outcome outcome = Deletion::of({at("a.png")});
    ASSERT_TRUE(put("a.png", "another"));
    const Result<> first = outcome.deletion->undo();
    ASSERT_FALSE(first);
    EXPECT_EQ(first.failure().words, u"a.png could not be brought back: File exists"_s);
    EXPECT_EQ(content("a.png"), "another");
    EXPECT_EQ(content("b.jpg"), "large");
    EXPECT_EQ(content("variants.json"), "{\"other.png\":\"third.png\"}");
    EXPECT_FALSE(content("prompts.json").contains("a.png"));

    ASSERT_TRUE(QFile::remove(at("a.png")));
    EXPECT_TRUE(outcome.deletion->undo());
    EXPECT_EQ(content("a.png"), "small");
    EXPECT_TRUE(content("prompts.json").contains("prompt of a.png"));
    EXPECT_TRUE(content("variants.json").contains("\"a.png\":\"b.jpg\""));
}

TEST_F(DeletionTest, keepsWhatWasSaidInTheMeantime)
{
    Deletion::Outcome outcome = Deletion::of({at("a.png")});
    EXPECT_TRUE(ImageStore::savePrompt(text("newer"), at("a.png")));
    EXPECT_TRUE(ImageStore::saveFavorite(text("newer.png")));
    EXPECT_TRUE(outcome.deletion->undo());
    EXPECT_TRUE(content("prompts.json").contains("\"a.png\":\"newer\""));
    EXPECT_EQ(content("favorites.json"), "[\"a.png\",\"b.jpg\",\"newer.png\",\"other.png\"]");
}

TEST_F(DeletionTest, ofAFolderWithAPicturesNameGoesOnlyWhenItIsEmpty)
{
    ASSERT_TRUE(QDir().mkpath(at("empty.png")) && QDir().mkpath(at("full.png")) && put("full.png/inside"));
    Deletion::Outcome outcome = Deletion::of({at("empty.png"), at("full.png")});
    ASSERT_FALSE(outcome.result);
    EXPECT_EQ(outcome.result.failure().words, u"full.png could not be deleted: Directory not empty"_s);
    EXPECT_FALSE(QFileInfo::exists(at("empty.png")));
    EXPECT_EQ(content("full.png/inside"), "x");
    EXPECT_TRUE(outcome.deletion->undo());
    EXPECT_TRUE(QFileInfo(at("empty.png")).isDir());
}

TEST_F(DeletionTest, takesALinkAwayAndNotWhatItLeadsTo)
{
    const QString elsewhere = m_home.path() + u"/elsewhere.png"_s;
    ASSERT_TRUE(putFile(elsewhere, "mine") && QFile::link(elsewhere, at("link.png")));
    Deletion::Outcome outcome = Deletion::of({at("link.png")});
    EXPECT_FALSE(QFileInfo(at("link.png")).isSymLink());
    EXPECT_TRUE(outcome.deletion->undo());
    EXPECT_EQ(QFileInfo(at("link.png")).symLinkTarget(), elsewhere);
    Deletion::of({at("link.png")}).deletion.reset();
    EXPECT_EQ(contentOf(elsewhere), "mine");
}

TEST_F(DeletionTest, isForGoodOnAFullDisk)
{
    PrivateHome home;
    const SmallDisk disk(home.library(), "size=64k");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    const QString picture = home.library() + u"/picture.png"_s;
    ASSERT_TRUE(putFile(picture, QByteArray(16384, 'p')));
    EXPECT_TRUE(ImageStore::savePrompt(text("p"), picture));
    QFile filler(home.library() + u"/filler"_s);
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(512, 'f')) == 512) {
    }
    Deletion::Outcome outcome = Deletion::of({picture});
    EXPECT_TRUE(outcome.result);
    EXPECT_FALSE(QFileInfo::exists(picture));
    EXPECT_EQ(contentOf(home.library() + u"/prompts.json"_s), "{}");
    EXPECT_EQ(QDir(home.library()).entryList({u".deleted.*"_s}, QDir::AllEntries | QDir::Hidden), QStringList());
}

} // namespace quorvane
