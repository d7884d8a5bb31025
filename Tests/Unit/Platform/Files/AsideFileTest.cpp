#include "Platform/Files/AsideFile.h"
#include "Platform/Files/StorageNotices.h"
#include "Support/FileMode.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class AsideFileTest : public testing::Test
{
  protected:
    AsideFileTest()
    {
        (void)StorageNotices::take(); // Those of other tests.
    }

    [[nodiscard]] QString at(const char *name) const { return m_home.path() + '/'_L1 + QString::fromUtf8(name); }
    [[nodiscard]] QStringList entries() const
    {
        return QDir(m_home.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    PrivateHome m_home;
};

} // namespace

TEST_F(AsideFileTest, whatIsReplacedLiesBesideItWithItsModeAndIsToldOnce)
{
    ASSERT_TRUE(putFile(at("a.json"), "odd") && setMode(at("a.json"), 0640));
    ASSERT_TRUE(replaceNotUnderstood(at("a.json"), "{}"));
    EXPECT_EQ(contentOf(at("a.json")), "{}");
    EXPECT_EQ(contentOf(at(".a.json.unreadable-1")), "odd");
    EXPECT_EQ(modeOf(at(".a.json.unreadable-1")), 0640U);
    EXPECT_EQ(modeOf(at("a.json")), 0640U);
    EXPECT_EQ(entries(), (QStringList{u".a.json.unreadable-1"_s, u"a.json"_s}));
    EXPECT_EQ(StorageNotices::take(), QStringList{u"a.json could not be understood. It was put aside as "_s +
                                                  at(".a.json.unreadable-1") + u", and a new one was begun."_s});
    EXPECT_EQ(StorageNotices::take(), QStringList());
}

TEST_F(AsideFileTest, keysAsideAreReadableByTheirOwnerOnly)
{
    ASSERT_TRUE(putFile(at("keys.json"), "odd") && setMode(at("keys.json"), 0644));
    ASSERT_TRUE(replaceNotUnderstood(at("keys.json"), "{}", FileAccess::OwnerOnly));
    EXPECT_EQ(modeOf(at(".keys.json.unreadable-1")), 0600U);
    EXPECT_EQ(modeOf(at("keys.json")), 0600U);
    ASSERT_TRUE(putFile(at("keys.json"), "odd") && setMode(at("keys.json"), 0400));
    ASSERT_TRUE(replaceNotUnderstood(at("keys.json"), "{}", FileAccess::OwnerOnly));
    EXPECT_EQ(modeOf(at(".keys.json.unreadable-2")), 0400U);
}

TEST_F(AsideFileTest, fiveAreKeptAndTheLastMakesRoom)
{
    for (int number = 1; number <= 7; ++number) {
        ASSERT_TRUE(putFile(at("a.json"), QByteArray::number(number)));
        ASSERT_TRUE(replaceNotUnderstood(at("a.json"), "{}"));
    }
    for (int number = 1; number <= 4; ++number) {
        EXPECT_EQ(contentOf(at(".a.json.unreadable-") + QString::number(number)), QByteArray::number(number));
    }
    EXPECT_EQ(contentOf(at(".a.json.unreadable-5")), "7");
    EXPECT_EQ(entries().size(), 6);
}

TEST_F(AsideFileTest, ofALinkWhatItLeadsToIsKeptAndTheLinkStays)
{
    ASSERT_TRUE(putFile(at("dotfiles/a.json"), "odd"));
    ASSERT_TRUE(QFile::link(u"dotfiles/a.json"_s, at("a.json")));
    ASSERT_TRUE(replaceNotUnderstood(at("a.json"), "{}"));
    EXPECT_TRUE(QFileInfo(at("a.json")).isSymLink());
    EXPECT_EQ(contentOf(at("dotfiles/a.json")), "{}");
    EXPECT_EQ(contentOf(at("dotfiles/.a.json.unreadable-1")), "odd");
}

TEST_F(AsideFileTest, aLinkToSomethingElseIsKeptItselfAndThatIsNotTouched)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(at("pipe")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"pipe"_s, at("a.json")));
    ASSERT_TRUE(replaceNotUnderstood(at("a.json"), "{}"));
    EXPECT_FALSE(QFileInfo(at("a.json")).isSymLink());
    EXPECT_TRUE(QFileInfo(at(".a.json.unreadable-1")).isSymLink());
    EXPECT_EQ(entries(), (QStringList{u".a.json.unreadable-1"_s, u"a.json"_s, u"pipe"_s}));
}

TEST_F(AsideFileTest, foldersAndPipesAreKeptToo)
{
    ASSERT_TRUE(putFile(at("a.json/inside")));
    ASSERT_TRUE(replaceNotUnderstood(at("a.json"), "{}"));
    EXPECT_TRUE(QFileInfo::exists(at(".a.json.unreadable-1/inside")));
    ASSERT_EQ(::mkfifo(QFile::encodeName(at("b.json")).constData(), 0600), 0);
    ASSERT_TRUE(replaceNotUnderstood(at("b.json"), "{}"));
    EXPECT_EQ(contentOf(at("b.json")), "{}");
}

TEST_F(AsideFileTest, nothingLiesAsideWhenNothingCouldTakeItsPlace)
{
    ASSERT_TRUE(putFile(at("a.json"), "odd"));
    ASSERT_TRUE(QDir(m_home.path()).mkpath(u"b.json"_s));
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(replaceNotUnderstood(at("a.json"), QByteArray(5000, 'x')));
        EXPECT_FALSE(replaceNotUnderstood(at("b.json"), QByteArray(5000, 'x')));
    }
    EXPECT_EQ(contentOf(at("a.json")), "odd");
    EXPECT_EQ(entries(), (QStringList{u"a.json"_s, u"b.json"_s}));
    EXPECT_EQ(StorageNotices::take(), QStringList());
}

TEST_F(AsideFileTest, whatCannotBePutAsideIsNotReplaced)
{
    ASSERT_TRUE(putFile(at("a.json"), "odd") && setMode(m_home.path(), 0555));
    {
        const AsOrdinaryUser user;
        const Result<> replaced = replaceNotUnderstood(at("a.json"), "{}");
        ASSERT_FALSE(replaced);
        EXPECT_EQ(replaced.failure().words, u"a.json cannot be understood, nor be put aside: Permission denied"_s);
    }
    ASSERT_TRUE(setMode(m_home.path(), 0755));
    EXPECT_EQ(contentOf(at("a.json")), "odd");
    EXPECT_EQ(entries(), QStringList{u"a.json"_s});
}

TEST_F(AsideFileTest, whatLiesAsideAlreadyIsNotKeptTwice)
{
    ASSERT_TRUE(putFile(at("a.json"), "odd"));
    // A process that was killed in between.
    ASSERT_EQ(
        ::link(QFile::encodeName(at("a.json")).constData(), QFile::encodeName(at(".a.json.unreadable-1")).constData()),
        0);
    ASSERT_TRUE(replaceNotUnderstood(at("a.json"), "{}"));
    EXPECT_EQ(entries(), (QStringList{u".a.json.unreadable-1"_s, u"a.json"_s}));
}

} // namespace quorvane
