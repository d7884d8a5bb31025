#include "Unit/Platform/Files/UserDefaultsFixture.h"

#include "Platform/Files/UserDefaults.h"

#include "Support/Files.h"
#include "Support/SmallDisk.h"
#include "Support/WaitFor.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(UserDefaultsTest, aFullDiskIsToldAndTheOldFileStays)
{
    UserDefaults defaults;
    defaults.set(u"lastPrompt"_s, u"a lake"_s);
    ASSERT_TRUE(defaults.sync());
    const QByteArray before = contentOf(path());
    QStringList told;
    defaults.failed = [&told](const Failure &failure) { told.append(failure.words); };
    {
        const FileSizeLimit full(16);
        defaults.set(u"nsfwEnabled"_s, true);
        ASSERT_TRUE(waitFor([&told] { return !told.isEmpty(); }));
        const Result<> result = defaults.sync();
        ASSERT_FALSE(result);
        EXPECT_TRUE(result.failure().words.startsWith(u"could not write "_s + path() + u": "_s))
            << result.failure().words.toStdString();
        defaults.set(u"fourKEnabled"_s, true);
        ASSERT_FALSE(defaults.sync());
        EXPECT_EQ(contentOf(path()), before);
    }
    EXPECT_EQ(told.size(), 1);
    // It is in force all the same, and kept as soon as that is possible.
    EXPECT_TRUE(defaults.boolean(u"nsfwEnabled"_s));
    ASSERT_TRUE(defaults.sync());
    const UserDefaults after;
    EXPECT_TRUE(after.boolean(u"nsfwEnabled"_s));
    EXPECT_TRUE(after.boolean(u"fourKEnabled"_s));
    EXPECT_EQ(after.text(u"lastPrompt"_s), u"a lake"_s);
}

TEST_F(UserDefaultsTest, aFileThatCannotBeReadIsNeverReplaced)
{
    ASSERT_TRUE(putFile(path(), "[General]\nlastPrompt=a lake\n"));
    AsOrdinaryUser::giveAway(path());
    AsOrdinaryUser::giveAway(QFileInfo(path()).path());
    AsOrdinaryUser::giveAway(home.path());
    ASSERT_TRUE(QFile::setPermissions(path(), {}));
    {
        const AsOrdinaryUser user;
        UserDefaults defaults;
        ASSERT_FALSE(defaults.reading());
        EXPECT_TRUE(defaults.reading().failure().words.startsWith(u"could not read "_s + path() + u": "_s));
        EXPECT_FALSE(defaults.text(u"lastPrompt"_s));
        defaults.set(u"nsfwEnabled"_s, true);
        EXPECT_FALSE(defaults.sync());
        ASSERT_TRUE(QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner));
        EXPECT_TRUE(defaults.sync());
    }
    const UserDefaults after;
    EXPECT_EQ(after.text(u"lastPrompt"_s), u"a lake"_s);
    EXPECT_TRUE(after.boolean(u"nsfwEnabled"_s));
}

TEST_F(UserDefaultsTest, whyNoFolderCanBeMadeIsTold)
{
    ASSERT_TRUE(putFile(home.path() + u"/.config"_s));
    UserDefaults defaults;
    defaults.set(u"nsfwEnabled"_s, true);
    const Result<> result = defaults.sync();
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.failure().words.endsWith(u": Not a directory"_s)) << result.failure().words.toStdString();
}

TEST_F(UserDefaultsTest, aPipeInItsPlaceHoldsNothingUp)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path()).path()));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    UserDefaults defaults;
    EXPECT_FALSE(defaults.reading());
    defaults.set(u"nsfwEnabled"_s, true);
    EXPECT_FALSE(defaults.sync());
}

} // namespace quorvane
