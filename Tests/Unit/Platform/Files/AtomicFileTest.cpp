#include "Unit/Platform/Files/AtomicFileFixture.h"

#include "Platform/Files/AtomicFile.h"
#include "Support/FileMode.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

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

TEST(AtomicFile, anExistingFileKeepsItsPermissions)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    for (const mode_t mode : {0600U, 0640U, 0664U, 0444U}) {
        ASSERT_TRUE(putFile(path, "old"));
        ASSERT_TRUE(setMode(path, mode));
        ASSERT_TRUE(writeFileAtomically(path, "new"));
        EXPECT_EQ(contentOf(path), "new");
        EXPECT_EQ(modeOf(path), mode);
        ASSERT_TRUE(QFile::remove(path));
    }
}

TEST(AtomicFile, whatIsWrittenOverAFileThatNobodyMayReadCanBeReadByItsOwner)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a.json"_s;
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(setMode(path, 0));
    ASSERT_TRUE(writeFileAtomically(path, "new"));
    EXPECT_EQ(modeOf(path), 0400U);
}

TEST(AtomicFile, aFileThatOthersCouldReadBecomesPrivateWhenItHasTo)
{
    const PrivateHome home;
    const QString path = home.path() + u"/keys.json"_s;
    ASSERT_TRUE(putFile(path, "old"));
    ASSERT_TRUE(setMode(path, 0644));
    ASSERT_TRUE(writeFileAtomically(path, "{}", FileAccess::OwnerOnly));
    EXPECT_EQ(modeOf(path), 0600U);
}

TEST(AtomicFile, aLinkStaysAndTheFileThatItLeadsToIsWritten)
{
    const PrivateHome home;
    const QString target = home.path() + u"/dotfiles/deep/favorites.json"_s;
    ASSERT_TRUE(putFile(target, "old"));
    ASSERT_TRUE(setMode(target, 0640));
    ASSERT_TRUE(QDir(home.path()).mkpath(u"library"_s));
    // One link by a path of its own folder, which is reached through a link as well, and one by a whole path.
    ASSERT_TRUE(QFile::link(home.path() + u"/dotfiles/deep"_s, home.path() + u"/short"_s));
    ASSERT_TRUE(QFile::link(u"../deep/favorites.json"_s, home.path() + u"/dotfiles/deep/relative.json"_s));
    const QString link = home.path() + u"/library/favorites.json"_s;
    ASSERT_TRUE(QFile::link(home.path() + u"/short/relative.json"_s, link));

    ASSERT_TRUE(writeFileAtomically(link, "new"));
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_EQ(modeOf(target), 0640U);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_TRUE(QFileInfo(home.path() + u"/dotfiles/deep/relative.json"_s).isSymLink());
    EXPECT_EQ(entriesOf(home.path() + u"/library"_s), QStringList{u"favorites.json"_s});
    EXPECT_EQ(entriesOf(QFileInfo(target).path()), (QStringList{u"favorites.json"_s, u"relative.json"_s}));
    const Result<QString> written = writtenPath(link);
    ASSERT_TRUE(written);
    EXPECT_EQ(QFileInfo(*written).canonicalFilePath(), QFileInfo(target).canonicalFilePath());
}

TEST(AtomicFile, aLinkToAFileThatIsNotThereYetMakesIt)
{
    const PrivateHome home;
    ASSERT_TRUE(QFile::link(u"target.json"_s, home.path() + u"/link.json"_s));
    ASSERT_TRUE(writeFileAtomically(home.path() + u"/link.json"_s, "new"));
    EXPECT_EQ(contentOf(home.path() + u"/target.json"_s), "new");
    EXPECT_TRUE(QFileInfo(home.path() + u"/link.json"_s).isSymLink());
}

TEST(AtomicFile, whatIsNoRegularFileIsNotReplaced)
{
    const PrivateHome home;
    const QString pipe = home.path() + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(writeFileAtomically(pipe, "x"));
    ASSERT_TRUE(QFile::link(pipe, home.path() + u"/link"_s));
    EXPECT_FALSE(writeFileAtomically(home.path() + u"/link"_s, "x"));
    struct stat status = {};
    ASSERT_EQ(::lstat(QFile::encodeName(pipe).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

} // namespace quorvane
