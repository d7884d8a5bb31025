#include "Platform/Pictures/PictureCopy.h"

#include "Platform/Files/Paths.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(PictureCopy, everyCopyHasANewNameWithItsBytesAndEnding)
{
    const PrivateHome home;
    const QString folder = PictureCopy::folders().constFirst();
    EXPECT_EQ(folder, Paths::stateHome() + u"/quorvane"_s);
    QStringList paths;
    for (int number = 0; number < 20; ++number) {
        const auto path = PictureCopy::write(folder, QByteArray::number(number), u"png"_s);
        ASSERT_TRUE(path);
        EXPECT_TRUE(path->startsWith(folder) && path->endsWith(u".png"_s));
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
    const auto old = PictureCopy::write(folder, "old", u"jpg"_s);
    const auto kept = PictureCopy::write(folder, "kept", u"png"_s);
    ASSERT_TRUE(old && kept);
    const QStringList others{u"wallpaper-mine.png"_s, u"wallpaper.png"_s, u"notes.txt"_s};
    for (const QString &name : others) {
        QFile file(folder + '/'_L1 + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    PictureCopy::removeAllBut(*kept);
    EXPECT_FALSE(QFile::exists(*old));
    EXPECT_EQ(contentOf(*kept), "kept");
    PictureCopy::removeAllBut({});
    EXPECT_FALSE(QFile::exists(*kept));
    for (const QString &name : others) {
        EXPECT_TRUE(QFile::exists(folder + '/'_L1 + name)) << name.toStdString();
    }
}

TEST(PictureCopy, aFolderThatCannotBeMadeGivesNoCopy)
{
    const PrivateHome home;
    QFile file(home.path() + u"/file"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(PictureCopy::write(file.fileName() + u"/inside"_s, "x", u"png"_s));
}

TEST(PictureCopy, aCopyIsKnownByItsNameAndItsBytes)
{
    const PrivateHome home;
    const QString folder = PictureCopy::folders().constFirst();
    const auto copy = PictureCopy::write(folder, "bytes", u"png"_s);
    ASSERT_TRUE(copy);
    const auto put = [](const QString &path, const QByteArray &content) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    };
    EXPECT_TRUE(PictureCopy::isCopyOf(*copy, put(home.path() + u"/same.png"_s, "bytes")));
    EXPECT_FALSE(PictureCopy::isCopyOf(*copy, put(home.path() + u"/other.png"_s, "other")));
    EXPECT_FALSE(PictureCopy::isCopyOf(*copy, put(home.path() + u"/longer.png"_s, "bytes!")));
    EXPECT_FALSE(PictureCopy::isCopyOf(*copy, home.path() + u"/missing.png"_s));
    const QString same = home.path() + u"/same.png"_s;
    EXPECT_FALSE(PictureCopy::isCopyOf(same, same)) << "not in a folder of ours";
    EXPECT_FALSE(PictureCopy::isCopyOf(put(folder + u"/mine.png"_s, "bytes"), same)) << "not our name";
    EXPECT_FALSE(PictureCopy::isCopyOf({}, same));
}

} // namespace quorvane
