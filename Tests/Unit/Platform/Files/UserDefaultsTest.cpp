#include "Unit/Platform/Files/UserDefaultsFixture.h"

#include "Platform/Files/UserDefaults.h"

#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(UserDefaultsTest, absentKeysReadAsEmptyFalseAndZero)
{
    const UserDefaults defaults;
    EXPECT_TRUE(defaults.reading());
    EXPECT_FALSE(defaults.text(u"lastPrompt"_s));
    EXPECT_FALSE(defaults.boolean(u"nsfwEnabled"_s));
    EXPECT_EQ(defaults.integer(u"intervalMinutes"_s), 0);
    EXPECT_FALSE(QFileInfo::exists(path()));
}

TEST_F(UserDefaultsTest, whatIsSetIsThereAtOnceAndInTheNextProcess)
{
    UserDefaults defaults;
    defaults.set(u"lastPrompt"_s, u"a \"lake\", 水\n"_s);
    defaults.set(u"nsfwEnabled"_s, true);
    defaults.set(u"intervalMinutes"_s, qint64{45});
    EXPECT_EQ(defaults.text(u"lastPrompt"_s), u"a \"lake\", 水\n"_s);
    ASSERT_TRUE(defaults.sync());
    UserDefaults next;
    EXPECT_EQ(next.text(u"lastPrompt"_s), u"a \"lake\", 水\n"_s);
    EXPECT_TRUE(next.boolean(u"nsfwEnabled"_s));
    EXPECT_EQ(next.integer(u"intervalMinutes"_s), 45);
    next.remove(u"nsfwEnabled"_s);
    EXPECT_FALSE(next.contains(u"nsfwEnabled"_s));
    ASSERT_TRUE(next.sync());
    EXPECT_FALSE(UserDefaults().contains(u"nsfwEnabled"_s));
}

TEST_F(UserDefaultsTest, changesAreWrittenWithoutBeingWaitedFor)
{
    UserDefaults defaults;
    defaults.set(u"nsfwEnabled"_s, true);
    EXPECT_TRUE(waitFor([this] { return contentOf(path()).contains("nsfwEnabled=true"); }));
    {
        UserDefaults other;
        other.set(u"fourKEnabled"_s, true);
    }
    EXPECT_TRUE(contentOf(path()).contains("fourKEnabled=true"));
}

TEST_F(UserDefaultsTest, filesOfQSettingsAreReadAndTheirOtherKeysStay)
{
    {
        QSettings older(path(), QSettings::IniFormat);
        older.setValue(u"lastPrompt"_s, u"@a, \"lake\"; = ä水"_s);
        older.setValue(u"autoEnabled"_s, true);
        older.setValue(u"Window/geometry"_s, QByteArray("\x00\x01\xff", 3));
        older.setValue(u"colours"_s, QStringList{u"red"_s, u"blue"_s});
    }
    UserDefaults defaults;
    EXPECT_EQ(defaults.text(u"lastPrompt"_s), u"@a, \"lake\"; = ä水"_s);
    EXPECT_TRUE(defaults.boolean(u"autoEnabled"_s));
    defaults.set(u"lastPrompt"_s, u"new"_s);
    ASSERT_TRUE(defaults.sync());
    const QSettings after(path(), QSettings::IniFormat);
    EXPECT_EQ(after.value(u"lastPrompt"_s).toString(), u"new"_s);
    EXPECT_EQ(after.value(u"Window/geometry"_s).toByteArray(), QByteArray("\x00\x01\xff", 3));
    EXPECT_EQ(after.value(u"colours"_s).toStringList(), (QStringList{u"red"_s, u"blue"_s}));
}

TEST_F(UserDefaultsTest, theSameValueWritesNothing)
{
    UserDefaults defaults;
    defaults.remove(u"lastPrompt"_s);
    EXPECT_TRUE(defaults.sync());
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(path()).path()));
    defaults.set(u"lastPrompt"_s, u"a lake"_s);
    EXPECT_TRUE(defaults.sync());
    const ino_t before = file();
    defaults.set(u"lastPrompt"_s, u"a lake"_s);
    EXPECT_TRUE(defaults.sync());
    EXPECT_EQ(file(), before);
    EXPECT_NE(before, 0U);
}

TEST_F(UserDefaultsTest, twoProcessesKeepEachOthersKeys)
{
    UserDefaults one;
    UserDefaults other;
    one.set(u"nsfwEnabled"_s, true);
    ASSERT_TRUE(one.sync());
    other.set(u"fourKEnabled"_s, true);
    ASSERT_TRUE(other.sync());
    one.set(u"lastPrompt"_s, u"a lake"_s);
    ASSERT_TRUE(one.sync());
    const UserDefaults after;
    EXPECT_TRUE(after.boolean(u"nsfwEnabled"_s));
    EXPECT_TRUE(after.boolean(u"fourKEnabled"_s));
    EXPECT_EQ(after.text(u"lastPrompt"_s), u"a lake"_s);
}

TEST_F(UserDefaultsTest, aLinkAndItsModeStay)
{
    const QString target = home.path() + u"/dotfiles.conf"_s;
    ASSERT_TRUE(putFile(target, "[General]\nlastPrompt=a lake\n"));
    ASSERT_TRUE(QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path()).path()));
    ASSERT_TRUE(QFile::link(target, path()));
    UserDefaults defaults;
    defaults.set(u"nsfwEnabled"_s, true);
    ASSERT_TRUE(defaults.sync());
    EXPECT_EQ(QFileInfo(path()).symLinkTarget(), target);
    EXPECT_EQ(contentOf(target), "[General]\nnsfwEnabled=true\nlastPrompt=a lake\n");
    EXPECT_EQ(QFileInfo(target).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

} // namespace quorvane
