#include "Platform/Pictures/PictureCopy.h"

#include "Platform/Files/Paths.h"
#include "Support/PrivateHome.h"

#include <QFile>

#include <gtest/gtest.h>

namespace quorvane {

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

} // namespace

TEST(PictureCopy, everyCopyHasANewNameWithItsBytesAndEnding)
{
    const PrivateHome home;
    const QString folder = PictureCopy::folders().constFirst();
    EXPECT_EQ(folder, Paths::stateHome() + QStringLiteral("/quorvane"));
    QStringList paths;
    for (int number = 0; number < 20; ++number) {
        const auto path = PictureCopy::write(folder, QByteArray::number(number), QStringLiteral("png"));
        ASSERT_TRUE(path);
        EXPECT_TRUE(path->startsWith(folder) && path->endsWith(QStringLiteral(".png")));
        EXPECT_FALSE(paths.contains(*path));
        paths.append(*path);
    }
    for (int number = 0; number < 20; ++number) {
        EXPECT_EQ(contentOf(paths.at(number)), QByteArray::number(number));
    }
}

TEST(PictureCopy, onlyCopiesOfOursAreRemovedAndNotTheOneToKeep)
{
    const PrivateHome home;
    const QString folder = PictureCopy::folders().constFirst();
    const auto old = PictureCopy::write(folder, "old", QStringLiteral("jpg"));
    const auto kept = PictureCopy::write(folder, "kept", QStringLiteral("png"));
    ASSERT_TRUE(old && kept);
    const QStringList others{QStringLiteral("wallpaper-mine.png"), QStringLiteral("wallpaper.png"),
                             QStringLiteral("notes.txt")};
    for (const QString &name : others) {
        QFile file(folder + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    PictureCopy::removeAllBut(*kept);
    EXPECT_FALSE(QFile::exists(*old));
    EXPECT_EQ(contentOf(*kept), "kept");
    PictureCopy::removeAllBut({});
    EXPECT_FALSE(QFile::exists(*kept));
    for (const QString &name : others) {
        EXPECT_TRUE(QFile::exists(folder + QLatin1Char('/') + name)) << name.toStdString();
    }
}

TEST(PictureCopy, aFolderThatCannotBeMadeGivesNoCopy)
{
    const PrivateHome home;
    QFile file(home.path() + QStringLiteral("/file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(PictureCopy::write(file.fileName() + QStringLiteral("/inside"), "x", QStringLiteral("png")),
              std::nullopt);
}

TEST(PictureCopy, aCopyIsKnownByItsNameAndItsBytes)
{
    const PrivateHome home;
    const QString folder = PictureCopy::folders().constFirst();
    const auto copy = PictureCopy::write(folder, "bytes", QStringLiteral("png"));
    ASSERT_TRUE(copy);
    const auto put = [](const QString &path, const QByteArray &content) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    };
    EXPECT_TRUE(PictureCopy::isCopyOf(*copy, put(home.path() + QStringLiteral("/same.png"), "bytes")));
    EXPECT_FALSE(PictureCopy::isCopyOf(*copy, put(home.path() + QStringLiteral("/other.png"), "other")));
    EXPECT_FALSE(PictureCopy::isCopyOf(*copy, put(home.path() + QStringLiteral("/longer.png"), "bytes!")));
    EXPECT_FALSE(PictureCopy::isCopyOf(*copy, home.path() + QStringLiteral("/missing.png")));
    const QString same = home.path() + QStringLiteral("/same.png");
    EXPECT_FALSE(PictureCopy::isCopyOf(same, same)) << "not in a folder of ours";
    EXPECT_FALSE(PictureCopy::isCopyOf(put(folder + QStringLiteral("/mine.png"), "bytes"), same)) << "not our name";
    EXPECT_FALSE(PictureCopy::isCopyOf({}, same));
}

} // namespace quorvane
