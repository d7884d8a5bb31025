#include "Manager/Library/Library.h"

#include "Platform/Files/FolderLock.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/System/Autostart.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class LibraryTest : public testing::Test
{
  protected:
    [[nodiscard]] QString put(const QString &name) const { return valueOf(ImageStore::saveImage(name, "image")); }

    [[nodiscard]] static QCoro::Task<> kept(QCoro::Task<Result<>> change)
    {
        const Result<> result = co_await std::move(change);
        EXPECT_TRUE(result) << (result ? "" : result.failure().words.toStdString());
    }

    PrivateHome home;
    TaskScope tasks;
};

TEST_F(LibraryTest, theFirstReadingIsBegunAndToldOfOnce)
{
    const QString path = put(u"a.png"_s);
    Library library(tasks);
    const QSignalSpy told(&library, &Library::historyChanged);
    EXPECT_FALSE(library.isRead());
    EXPECT_EQ(library.history(), QStringList{path}) << "who asks waits for it";
    EXPECT_TRUE(library.isRead());
    tasks.wait();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(LibraryTest, changesHappenInTheOrderInWhichTheyWereAskedFor)
{
    const QString path = put(u"a.png"_s);
    Library library(tasks);
    tasks.wait();
    {
        // Nothing can be written before all of it has been asked for.
        const FolderLock lock(ImageStore::directory());
        tasks.start(kept(library.writingFavorite(u"a.png"_s, true)));
        tasks.start(kept(library.writingFavorite(u"a.png"_s, false)));
        tasks.start(kept(library.writingFavorite(u"b.png"_s, true)));
        tasks.start(kept(library.deleting(path)));
    }
    tasks.wait();
    EXPECT_EQ(readTextList(ImageStore::favoritesPath()), QStringList{u"b.png"_s});
    EXPECT_TRUE(library.history().isEmpty());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(LibraryTest, aFavouriteToggledWhileItIsReadIsNotUndone)
{
    (void)put(u"a.png"_s);
    Library library(tasks);
    tasks.wait();
    tasks.start(library.refreshing());
    EXPECT_TRUE(library.toggleFavorite(u"a.png"_s));
    EXPECT_EQ(library.favorites(), QSet<QString>{u"a.png"_s});
    tasks.start(kept(library.writingFavorite(u"a.png"_s, true)));
    tasks.wait();
    EXPECT_EQ(library.favorites(), QSet<QString>{u"a.png"_s});
    EXPECT_FALSE(library.toggleFavorite(u"a.png"_s));
}

TEST_F(LibraryTest, aCopyTakesItsOriginalsPromptAndPlaceAndIsNotMadeOfWhatIsGone)
{
    const QString original = put(u"a.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, original));
    Library library(tasks);
    std::optional<Result<KeptPicture>> copy;
    const auto keep = [&library, &copy](QString name, QString source) -> QCoro::Task<> {
        NewPicture picture{name, "large", std::nullopt, source};
        copy = co_await library.keepingCopy(std::move(picture));
        co_await library.refreshing();
    };
    tasks.start(keep(u"b.png"_s, original));
    tasks.wait();
    ASSERT_TRUE(copy);
    const QString path = valueOf(*copy).path;
    EXPECT_EQ(library.history(), QStringList{path});
    EXPECT_EQ(recordedPrompt(path), u"a lake"_s);

    tasks.start(keep(u"c.png"_s, home.library() + u"/gone.png"_s));
    tasks.wait();
    EXPECT_FALSE(copy);
    EXPECT_FALSE(QFile::exists(home.library() + u"/c.png"_s));
}

TEST_F(LibraryTest, readingNowOvertakesTheFirstReading)
{
    Library library(tasks);
    const QString path = put(u"a.png"_s);
    library.reload();
    EXPECT_TRUE(library.isRead());
    EXPECT_EQ(library.history(), QStringList{path});
    tasks.wait();
    EXPECT_EQ(library.history(), QStringList{path});
}

TEST_F(LibraryTest, whatKilledRunsLeftHalfWrittenGoesWhereverWeWrite)
{
    const QString keyFile = home.path() + u"/Library/Application Support/Quorvane/keys.json"_s;
    QStringList left;
    for (const QString &path : {ImageStore::promptsPath(), keyFile, UserDefaults::defaultPath(), userModelPath(),
                                autostartEntryPath(), PictureCopy::folders().first() + u"/copy.png"_s}) {
        const QFileInfo written(path);
        left.append(written.path() + u"/."_s + written.fileName() + u".XyZ123.quorvane-tmp"_s);
        ASSERT_TRUE(putFile(left.last()));
    }
    Library library(tasks);
    tasks.start(library.removingAbandonedFiles());
    tasks.wait();
    for (const QString &path : left) {
        EXPECT_FALSE(QFile::exists(path)) << path.toStdString();
    }
}

} // namespace quorvane
