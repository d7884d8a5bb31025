#include "Platform/System/Autostart.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Where an administrator's entries would lie, for as long as the object lives.
class SystemFolder
{
  public:
    explicit SystemFolder(const QString &path) { qputenv("XDG_CONFIG_DIRS", path.toLocal8Bit()); }
    ~SystemFolder() { m_before.isNull() ? qunsetenv("XDG_CONFIG_DIRS") : qputenv("XDG_CONFIG_DIRS", m_before); }
    SystemFolder(const SystemFolder &) = delete;
    SystemFolder &operator=(const SystemFolder &) = delete;

  private:
    QByteArray m_before = qgetenv("XDG_CONFIG_DIRS");
};

class AutostartTest : public testing::Test
{
  protected:
    PrivateHome home;
    SystemFolder system{home.path() + u"/system"_s};
    const QString entry = home.path() + u"/.config/autostart/app.quorvane.Quorvane.desktop"_s;
};

/// A part of a path that Exec= must not lose.
class AutostartPathTest : public AutostartTest, public testing::WithParamInterface<const char *>
{
};

} // namespace

TEST_F(AutostartTest, offRemovesTheEntryAndMayBeSaidTwice)
{
    ASSERT_TRUE(writeAutostartEntry(Autostart::On, u"/usr/bin/quorvane"_s));
    EXPECT_TRUE(contentOf(entry).contains("\nExec=\"/usr/bin/quorvane\" --hidden\n"));
    EXPECT_TRUE(writeAutostartEntry(Autostart::Off, u"/usr/bin/quorvane"_s));
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_TRUE(writeAutostartEntry(Autostart::Off, u"/usr/bin/quorvane"_s));
}

TEST_F(AutostartTest, onBringsBackAnEntryThatTheDesktopHid)
{
    for (const char *off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        ASSERT_TRUE(putFile(entry, QByteArray("[Desktop Entry]\nType=Application\nName=x\nExec=x\n") + off));
        ASSERT_TRUE(writeAutostartEntry(Autostart::On, u"/usr/bin/quorvane"_s));
        EXPECT_FALSE(contentOf(entry).contains(off));
    }
}

TEST_F(AutostartTest, offHidesAnEntryThatTheSystemHasForAllUsers)
{
    ASSERT_TRUE(putFile(home.path() + u"/system/autostart/app.quorvane.Quorvane.desktop"_s,
                        "[Desktop Entry]\nType=Application\nName=Quorvane\nExec=quorvane --hidden\n"));
    ASSERT_TRUE(writeAutostartEntry(Autostart::Off, u"/usr/bin/quorvane"_s));
    EXPECT_TRUE(contentOf(entry).contains("\nHidden=true\n"));
    ASSERT_TRUE(writeAutostartEntry(Autostart::On, u"/usr/bin/quorvane"_s));
    EXPECT_FALSE(contentOf(entry).contains("Hidden"));
}

TEST_F(AutostartTest, aFolderThatCannotBeMadeIsAFailure)
{
    ASSERT_TRUE(putFile(home.path() + u"/.config"_s, "a file in its place"));
    EXPECT_FALSE(writeAutostartEntry(Autostart::On, u"/usr/bin/quorvane"_s));
}

TEST_P(AutostartPathTest, theDesktopStartsTheProgramWhateverItsPathIs)
{
    if (QStandardPaths::findExecutable(u"gio"_s).isEmpty()) {
        GTEST_SKIP() << "gio is not installed";
    }
    const QString folder = home.path() + '/'_L1 + QString::fromUtf8(GetParam());
    const QString program = folder + u"/quorvane"_s;
    ASSERT_TRUE(putFile(program, "#!/bin/sh\n"
                                 "printf '%s\\n' \"$#\" \"$@\" >\"$HOME/part\"\n"
                                 "mv \"$HOME/part\" \"$HOME/started\"\n"));
    ASSERT_TRUE(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    ASSERT_TRUE(writeAutostartEntry(Autostart::On, program));
    QProcess launch;
    launch.start(u"gio"_s, {u"launch"_s, entry});
    ASSERT_TRUE(launch.waitForFinished());
    EXPECT_EQ(launch.exitCode(), 0) << launch.readAllStandardError().constData() << contentOf(entry).constData();
    const QString started = home.path() + u"/started"_s;
    ASSERT_TRUE(waitFor([&started] { return QFile::exists(started); })) << contentOf(entry).constData();
    EXPECT_EQ(contentOf(started), "1\n--hidden\n");
}

INSTANTIATE_TEST_SUITE_P(Every, AutostartPathTest,
                         testing::Values("plain", "with space", "two \"quotes\"", "an apostrophe's", "back\\slash",
                                         "back\\\\slashes\\", "$HOME", "back`tick", "100%", "%f", "semi;colon", "#hash",
                                         "tab\there", "line\nbreak", "Bilder-Ü"));

} // namespace quorvane
