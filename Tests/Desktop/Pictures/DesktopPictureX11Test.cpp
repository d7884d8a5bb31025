#include "Desktop/Pictures/DesktopPictureX11Fixture.h"

#include "Support/WaitFor.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(DesktopPictureX11Test, fillsEachMonitorAroundTheCentreAndReplacesItsOwnPicture)
{
    startWithTwoMonitors();
    EXPECT_EQ(m_desktop->screens(), (QList<Screen>{{u"LEFT"_s, kLeft.size()}, {u"RIGHT"_s, kRight.size()}}));
    const QString path = save(u"one.png"_s, 40);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(differenceEverywhere(40), QString());
    EXPECT_EQ(m_server->rootWindow().pixel(600, 600), qRgb(0, 0, 0)) << "outside every monitor";
    const QByteArray screenshots = qgetenv("QUORVANE_TEST_SCREENSHOTS");
    if (!screenshots.isEmpty()) {
        m_server->rootWindow().save(QFile::decodeName(screenshots) + u"/x11.png"_s);
    }

    save(u"one.png"_s, 200);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(differenceEverywhere(200), QString());
}

TEST_F(DesktopPictureX11Test, showsPicturesFromFoldersWithAnyName)
{
    startWithTwoMonitors();
    const QString name = QString::fromUtf8("o'brien $(touch x) #1 100% \"q\" \n Ünïcødé 日本/picture.png");
    ASSERT_EQ(m_desktop->setPicture(save(name, 120), m_desktop->screens()), kDone);
    EXPECT_EQ(differenceEverywhere(120), QString());
}

TEST_F(DesktopPictureX11Test, thePictureStaysWhenTheProcessEnds)
{
    constexpr auto kChildsPicture = "QUORVANE_TEST_CHILDS_PICTURE";
    if (qEnvironmentVariableIsSet(kChildsPicture)) { // The other process, which is this same test.
        DesktopPictureX11 desktop(qgetenv("DISPLAY"), QString());
        ASSERT_EQ(desktop.setPicture(QFile::decodeName(qgetenv(kChildsPicture)), desktop.screens()), kDone);
        return;
    }
    startWithTwoMonitors();
    QProcessEnvironment environment = m_server->clientEnvironment();
    environment.insert(QString::fromLatin1(kChildsPicture), save(u"one.png"_s, 40));
    const auto *self = testing::UnitTest::GetInstance()->current_test_info();
    const QString filter =
        u"--gtest_filter=%1.%2"_s.arg(QString::fromLatin1(self->test_suite_name()), QString::fromLatin1(self->name()));
    const QByteArray output = outputOf(QCoreApplication::applicationFilePath(), {filter}, environment);
    ASSERT_TRUE(output.contains("[  PASSED  ] 1 test")) << output.constData();
    EXPECT_EQ(differenceEverywhere(40), QString());

    // What one process left behind, the next one frees.
    const quint32 left = m_server->announcedPixmap();
    ASSERT_FALSE(m_server->pixelsOf(left).isNull());
    ASSERT_EQ(m_desktop->setPicture(save(u"two.png"_s, 80), m_desktop->screens()), kDone);
    EXPECT_EQ(differenceEverywhere(80), QString());
    EXPECT_TRUE(m_server->pixelsOf(left).isNull());
}

TEST_F(DesktopPictureX11Test, aProgramThatAnnouncedItsPixmapOnlyForReadingLivesOn)
{
    startWithTwoMonitors();
    // As desktops do that keep their pixmap on the connection that they draw with: only _XROOTPMAP_ID.
    xcb_connection_t *other = xcb_connect(m_server->display().constData(), nullptr);
    ASSERT_EQ(xcb_connection_has_error(other), 0);
    const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(other)).data;
    const xcb_pixmap_t pixmap = xcb_generate_id(other);
    xcb_create_pixmap(other, screen.root_depth, pixmap, screen.root, 10, 10);
    const auto named = xcb_intern_atom(other, 0, 13, "_XROOTPMAP_ID");
    auto *atom = xcb_intern_atom_reply(other, named, nullptr);
    ASSERT_NE(atom, nullptr);
    xcb_change_property(other, XCB_PROP_MODE_REPLACE, screen.root, atom->atom, XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    std::free(atom);
    xcb_flush(other);
    ASSERT_TRUE(waitFor([&] { return m_server->announcedPixmap() == pixmap; }));

    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), m_desktop->screens()), kDone);
    EXPECT_EQ(differenceEverywhere(40), QString());
    EXPECT_EQ(m_server->pixelsOf(pixmap).size(), QSize(10, 10));
    xcb_disconnect(other);
}

TEST_F(DesktopPictureX11Test, takesTurnsWithAnotherProgramThatSetsThePicture)
{
    if (!firstMissing({u"feh"_s}).isEmpty()) {
        GTEST_SKIP() << "feh is not installed";
    }
    startWithTwoMonitors();
    const QString ours = save(u"ours.png"_s, 40);
    const QString theirs = save(u"theirs.png"_s, 220, kRoot);
    const QStringList feh{u"--no-fehbg"_s, u"--no-xinerama"_s, u"--bg-fill"_s, theirs};
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_EQ(m_desktop->setPicture(ours, m_desktop->screens()), kDone);
        EXPECT_EQ(differenceEverywhere(40), QString());
        ASSERT_FALSE(outputOf(u"feh"_s, feh, m_server->clientEnvironment()).isNull());
        EXPECT_EQ(differenceFromFill(announced("_XROOTPMAP_ID"), kRoot, 220), QString());
    }
}

TEST_F(DesktopPictureX11Test, worksOnSixteenBitColours)
{
    startWithTwoMonitors(16);
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 128), m_desktop->screens()), kDone);
    // Five bits a colour are 8 levels apart, which the comparison is too sharp for; two corners tell the orientation.
    const QImage left = m_server->rootWindow().copy(kLeft);
    ASSERT_EQ(left.size(), kLeft.size());
    EXPECT_NEAR(qRed(left.pixel(3, 3)), 0, 8);
    EXPECT_NEAR(qRed(left.pixel(kLeft.width() - 3, 3)), 255, 8);
    EXPECT_NEAR(qBlue(left.pixel(400, 200)), 128, 8);
}

TEST_F(DesktopPictureX11Test, withoutRandRTheRootWindowIsTheScreen)
{
    start(24, {u"-extension"_s, u"RANDR"_s});
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(screens, (QList<Screen>{{u"screen"_s, kRoot}}));
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), screens), kDone);
    EXPECT_EQ(differenceFromFill(m_server->rootWindow(), kSource, 40), QString());
}

} // namespace quorvane
