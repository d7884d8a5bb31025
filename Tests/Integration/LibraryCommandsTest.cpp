#include "Integration/CommandsFixture.h"

#include "Support/Files.h"

#include <QJsonObject>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(CommandsTest, historyAlbumsAndFavouritesFollowTheLibrary)
{
    const QString path = generate(u"a lake"_s);
    const QString name = QFileInfo(path).fileName();
    QJsonObject image = run({u"history"_s, u"--json"_s}).json()[0].toObject();
    EXPECT_EQ(image.value("file"_L1).toString(), name);
    EXPECT_EQ(image.value("path"_L1).toString(), path);
    EXPECT_EQ(image.value("prompt"_L1).toString(), u"a lake"_s);
    EXPECT_FALSE(image.value("favorite"_L1).toBool(true));
    EXPECT_TRUE(image.value("variant"_L1).isNull());
    EXPECT_TRUE(QDateTime::fromString(image.value("created"_L1).toString(), Qt::ISODateWithMs).isValid());

    // A bare name, a path and a relative path mean the same picture.
    EXPECT_EQ(run({u"favorite"_s, name}).status, 0);
    image = run({u"history"_s, u"--json"_s}).json()[0].toObject();
    EXPECT_TRUE(image.value("favorite"_L1).toBool());
    const QJsonValue albums = run({u"albums"_s, u"--json"_s}).json();
    EXPECT_EQ(albums.toArray().size(), 2);
    EXPECT_TRUE(albums[0]["isFavorites"_L1].toBool());
    EXPECT_EQ(albums[1]["id"_L1].toString(), u"a lake"_s);
    EXPECT_EQ(albums[1]["images"_L1].toArray(), QJsonArray{name});
    EXPECT_EQ(run({u"favorite"_s, u"Pictures/Quorvane/"_s + name}).status, 0);
    EXPECT_EQ(contentOf(home.library() + u"/favorites.json"_s), "[]");

    EXPECT_EQ(run({u"delete"_s, name}).status, 0);
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_EQ(run({u"history"_s, u"--json"_s}).output, "[]\n");
    EXPECT_EQ(contentOf(home.library() + u"/prompts.json"_s), "{}");
}

TEST_F(CommandsTest, onlyPicturesOfTheLibraryAreEverDeletedOrMarked)
{
    const QString outside = home.path() + u"/mine.png"_s;
    ASSERT_TRUE(putFile(outside));
    ASSERT_TRUE(putFile(home.library() + u"/prompts.json"_s, "{}"));
    for (const char *command : {"delete", "favorite"}) {
        for (const QString &file :
             {outside, u"mine.png"_s, u"prompts.json"_s, u"."_s, u"../Quorvane"_s, u"gone.png"_s, QString()}) {
            EXPECT_EQ(run({QLatin1String(command), file}).status, 1) << command << " " << file.toStdString();
        }
    }
    EXPECT_TRUE(QFile::exists(outside));
    EXPECT_TRUE(QFile::exists(home.library() + u"/prompts.json"_s));
    EXPECT_FALSE(QFile::exists(home.library() + u"/favorites.json"_s));
}

TEST_F(CommandsTest, setTakesPathsAndNamesAndRemembersTheWallpaper)
{
    const QString path = generate(u"a lake"_s);
    const QString mine = home.path() + u"/my picture.png"_s;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(mine));
    EXPECT_EQ(run({u"set"_s, u"my picture.png"_s, u"--json"_s}).json()["file"_L1], QJsonValue(mine));
    EXPECT_EQ(run({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1], QJsonValue(mine));
    EXPECT_EQ(run({u"set"_s, QFileInfo(path).fileName()}).output, "Wallpaper set!\n");
    EXPECT_EQ(run({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1], QJsonValue(path));
    EXPECT_EQ(run({u"set"_s, u"gone.png"_s}).status, 1);
    ASSERT_EQ(::mkfifo(QFile::encodeName(home.path() + u"/pipe.png"_s).constData(), 0600), 0);
    for (const QString &none : {QString(), home.path(), u"pipe.png"_s, u"/dev/null"_s}) {
        for (const QString &verb : {u"set"_s, u"upscale"_s}) {
            EXPECT_EQ(run({verb, none}).status, 1) << verb.toStdString() << ' ' << none.toStdString();
        }
    }
    // An upscale costs, so it is not tried with what is no picture.
    const qsizetype requests = service.requests().size();
    EXPECT_EQ(run({u"upscale"_s, u"prompts.json"_s}).status, 1);
    EXPECT_EQ(service.requests().size(), requests);
    EXPECT_EQ(run({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1], QJsonValue(path));
}

TEST_F(CommandsTest, autoAndAutostartAreSwitches)
{
    EXPECT_EQ(run({u"auto"_s, u"on"_s}).status, 0);
    EXPECT_TRUE(run({u"status"_s, u"--json"_s}).json()["autoEnabled"_L1].toBool());
    EXPECT_EQ(run({u"auto"_s, u"off"_s}).status, 0);
    EXPECT_FALSE(run({u"status"_s, u"--json"_s}).json()["autoEnabled"_L1].toBool(true));

    const QString entry = home.path() + u"/.config/autostart/app.quorvane.Quorvane.desktop"_s;
    EXPECT_EQ(run({u"autostart"_s, u"on"_s}).status, 0);
    EXPECT_TRUE(contentOf(entry).contains("\nExec=\"" QUORVANE_PROGRAM "\" --hidden\n"))
        << contentOf(entry).constData();
    EXPECT_EQ(run({u"autostart"_s, u"off"_s}).status, 0);
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_EQ(run({u"autostart"_s, u"off"_s}).status, 0);
}

} // namespace quorvane
