#include "Platform/Files/AtomicFile.h"
#include "Support/PrivateHome.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

} // namespace

TEST(AtomicFile, writesTheBytesAndLeavesNothingElseBehind)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    ASSERT_TRUE(writeFileAtomically(path, "one"));
    ASSERT_TRUE(writeFileAtomically(path, "two"));
    EXPECT_EQ(contentOf(path), "two");
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.json"_s});
}

TEST(AtomicFile, aPrivateFileIsReadableByItsOwnerOnly)
{
    const PrivateHome home;
    const QString path = home.path() + u"/keys.json"_s;
    ASSERT_TRUE(writeFileAtomically(path, "{}", FileAccess::OwnerOnly));
    EXPECT_EQ(QFileInfo(path).permissions() &
                  (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions());
}

TEST(AtomicFile, aFailedWriteLeavesTheOldFileAndNoTemporary)
{
    const PrivateHome home;
    // A folder cannot be replaced by a file, so the rename fails after everything else succeeded.
    ASSERT_TRUE(QDir(home.path()).mkpath(u"taken/inside"_s));
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/taken"_s, "x"));
    EXPECT_TRUE(QDir(home.path() + u"/taken/inside"_s).exists());
    EXPECT_TRUE(QDir(home.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST(AtomicFile, aMissingFolderIsAFailure)
{
    const PrivateHome home;
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/none/a"_s, "x"));
}

TEST(AtomicFile, onlyOldTemporariesOfOursAreRemoved)
{
    const PrivateHome home;
    const QStringList names{u".a.json.XyZ123.quorvane-tmp"_s, u".b.json.XyZ123.quorvane-tmp"_s, u".other-program"_s,
                            u"wallpaper.png"_s};
    for (const QString &name : names) {
        QFile file(home.path() + '/'_L1 + name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        if (!name.startsWith(u".b"_s)) {
            ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
        }
    }
    removeAbandonedTemporaries(home.path());
    const QStringList left = QDir(home.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    EXPECT_EQ(left, (QStringList{names.at(1), names.at(2), names.at(3)}));
}

} // namespace quorvane
