#include "Desktop/Pictures/SwayScreensFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(SwayScreensTest, listsTheActiveOutputsWithTheSizesTheyHaveAsTheyAreTurned)
{
    // Each version of sway tells them in another order.
    const QList<Screen> screens = m_desktop->screens();
    EXPECT_EQ(screens.size(), 2);
    EXPECT_TRUE(screens.contains({kFirst, QSize(800, 450)}));
    EXPECT_TRUE(screens.contains({kSecond, QSize(400, 600)}));
    const QStringList turn{u"output HEADLESS-1 transform 90 scale 2"_s};
    ASSERT_FALSE(outputOf(u"swaymsg"_s, turn, m_sway->clientEnvironment()).isNull());
    EXPECT_TRUE(waitFor([&] { return m_desktop->screens().contains({kFirst, QSize(450, 800)}); }));
}

TEST_F(SwayScreensTest, fillsEachScreenAroundTheCentreAndRefreshesTheSamePath)
{
    const QString path = save(library(u"one.png"_s), 40);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(40), QString());
    EXPECT_EQ(copies(), QStringList()) << "a plain path needs no copy";
    const QByteArray screenshots = qgetenv("QUORVANE_TEST_SCREENSHOTS");
    if (!screenshots.isEmpty()) {
        m_sway->screenshot(kFirst).save(QFile::decodeName(screenshots) + u"/sway-1.png"_s);
        m_sway->screenshot(kSecond).save(QFile::decodeName(screenshots) + u"/sway-2.png"_s);
    }

    save(path, 200);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(200), QString());
}

TEST_F(SwayScreensTest, showsPicturesFromFoldersWithAnyNameAndRunsNothingInThem)
{
    const QString name = QString::fromUtf8("o'brien $(touch x) `touch x` #1 100% \"q\" ;,\\ \n Ünïcødé 日本");
    const QString path = save(library(name + u"/picture.png"_s), 120);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(120), QString());
    const QStringList first = copies();
    EXPECT_EQ(first.size(), 1);

    save(path, 220);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(220), QString());
    EXPECT_EQ(copies().size(), 1) << "the copy before is deleted";
    EXPECT_NE(copies(), first) << "the new one has a new name";
    EXPECT_FALSE(QFile::exists(m_sway->runtimeFolder() + u"/x"_s));
    EXPECT_FALSE(QFile::exists(u"x"_s));

    // Back at a plain path nothing needs the copy any more.
    ASSERT_EQ(m_desktop->setPicture(save(library(u"plain.png"_s), 10), m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(10), QString());
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(SwayScreensTest, usesTheSessionFolderWhereTheHomeHasAnAwkwardNameToo)
{
    const QString stateHome = m_home.path() + u"/it's mine"_s;
    const QString session = m_home.path() + u"/session"_s;
    qputenv("XDG_STATE_HOME", QFile::encodeName(stateHome));
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session));
    const QString path = save(library(u"it's/picture.png"_s), 70);
    EXPECT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(70), QString());
    EXPECT_EQ(QDir(session + u"/quorvane"_s).entryList(QDir::Files).size(), 1);
    EXPECT_FALSE(QFile::exists(stateHome + u"/quorvane"_s));
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}

TEST_F(SwayScreensTest, showsFormatsThatSwaysOwnProgramMayNotRead)
{
    const QString path = save(library(u"picture.png"_s), 90, "bmp");
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(90), QString());
    EXPECT_EQ(copies().size(), 1);
}

} // namespace quorvane
