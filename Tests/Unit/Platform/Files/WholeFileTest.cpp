#include "Platform/Files/WholeFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qint64 kLimit = 100'000;

QString wordsOf(const QString &path, qint64 limit = kLimit)
{
    const Result<std::optional<QByteArray>> bytes = readWholeIfAny(path, limit);
    return bytes ? u"<no failure>"_s : bytes.failure().words;
}

} // namespace

TEST(WholeFile, everyByteIsRead)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a"_s;
    for (const qsizetype size : {qsizetype(0), qsizetype(1), qsizetype(4096), qsizetype(9'000'001)}) {
        const QByteArray content(size, 'q');
        ASSERT_TRUE(putFile(path, content));
        const Result<QByteArray> bytes = readWhole(path, 10'000'000);
        ASSERT_TRUE(bytes) << size;
        EXPECT_EQ(*bytes, content) << size;
    }
}

TEST(WholeFile, aFileWhoseSizeIsNotToldIsReadToItsEnd)
{
    const Result<QByteArray> bytes = readWhole(u"/proc/self/status"_s, kLimit);
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->contains("\nUmask:"));
    EXPECT_EQ(wordsOf(u"/proc/self/status"_s, 10), u"File too large"_s);
}

TEST(WholeFile, aMissingFileIsToldFromOneThatCannotBeRead)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a"_s;
    const Result<std::optional<QByteArray>> missing = readWholeIfAny(path, kLimit);
    ASSERT_TRUE(missing);
    EXPECT_FALSE(missing->has_value());
    const Result<QByteArray> needed = readWhole(path, kLimit);
    ASSERT_FALSE(needed);
    EXPECT_EQ(needed.failure().words, u"No such file or directory"_s);

    ASSERT_TRUE(putFile(path));
    ASSERT_EQ(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
    const AsOrdinaryUser user;
    EXPECT_EQ(wordsOf(path), u"Permission denied"_s);
}

TEST(WholeFile, aFileIsReadUpToTheLimitAndRefusedBeyond)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a"_s;
    ASSERT_TRUE(putFile(path, QByteArray(kLimit, 'x')));
    EXPECT_TRUE(readWhole(path, kLimit));
    ASSERT_TRUE(putFile(path, QByteArray(kLimit + 1, 'x')));
    EXPECT_EQ(wordsOf(path), u"File too large"_s);
}

TEST(WholeFile, whatIsNoRegularFileIsNeverOpened)
{
    const PrivateHome home;
    const QString pipe = home.path() + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(wordsOf(pipe), u"Not a regular file"_s);
    ASSERT_TRUE(QFile::link(pipe, home.path() + u"/link"_s));
    EXPECT_EQ(wordsOf(home.path() + u"/link"_s), u"Not a regular file"_s);
    EXPECT_EQ(wordsOf(u"/dev/zero"_s), u"Not a regular file"_s);
    EXPECT_EQ(wordsOf(home.path()), u"Is a directory"_s);

    QFile file;
    EXPECT_FALSE(openRegularFile(pipe, kLimit, &file));
    EXPECT_FALSE(file.isOpen());
}

TEST(WholeFile, aLinkIsFollowed)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.path() + u"/a"_s, "content"));
    ASSERT_TRUE(QFile::link(u"a"_s, home.path() + u"/link"_s));
    QFile file;
    ASSERT_TRUE(openRegularFile(home.path() + u"/link"_s, kLimit, &file));
    EXPECT_EQ(file.readAll(), "content");
    file.close();
    EXPECT_FALSE(openRegularFile(home.path() + u"/link"_s, 6, &file));
    EXPECT_FALSE(file.isOpen());
}

TEST(WholeFile, aReadingThatIsToStopEnds)
{
    const PrivateHome home;
    ASSERT_TRUE(putFile(home.path() + u"/a"_s));
    std::stop_source source;
    EXPECT_TRUE(readWhole(home.path() + u"/a"_s, kLimit, source.get_token()));
    source.request_stop();
    EXPECT_FALSE(readWhole(home.path() + u"/a"_s, kLimit, source.get_token()));
}

TEST(WholeFile, tooManyOpenFilesAreAFailureAndNotAMissingFile)
{
    const PrivateHome home;
    const QString path = home.path() + u"/a"_s;
    ASSERT_TRUE(putFile(path));
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const QString words = wordsOf(path);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(words, u"Too many open files"_s);
}

TEST(WholeFile, nothingHasANameWithANull)
{
    const Result<std::optional<QByteArray>> bytes = readWholeIfAny(u"/proc/self/status\0x"_s, kLimit);
    ASSERT_TRUE(bytes);
    EXPECT_FALSE(bytes->has_value());
}

} // namespace quorvane
