// A screen that comes while the program runs gets the picture, judged by its pixels.

#include "Support/Desktop/NestedSway.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kSource(1200, 1000);
constexpr int kMark = 90;

class ScreenChangeTest : public testing::Test
{
  protected:
    ScreenChangeTest()
    {
        // sway and what runs in it are another user's where the tests run as root.
        QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7055));
        EXPECT_TRUE(positionPicture(kSource, kMark).save(picture()));
    }

    [[nodiscard]] QString picture() const { return m_folder.filePath(u"picture.png"_s); }

    void keep(QProcessEnvironment environment, const QString &platform, OwnedProgram::User user)
    {
        environment.insert(u"QT_QPA_PLATFORM"_s, platform);
        m_keeper = std::make_unique<OwnedProgram>(QStringLiteral(WALLPAPER_KEEPER), QStringList{picture()}, environment,
                                                  u"/"_s, user);
        ASSERT_EQ(m_keeper->readLine(), "Wallpaper set!") << m_keeper->errors().constData();
    }

    /// Why the screen does not come to show the picture; empty when it does.
    template <typename Screenshot> static QString waitForPicture(Screenshot screenshot)
    {
        QString difference;
        (void)waitFor([&] { return (difference = differenceFromFill(screenshot(), kSource, kMark)).isEmpty(); },
                      std::chrono::seconds(10));
        return difference;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<OwnedProgram> m_keeper;
};

} // namespace

TEST_F(ScreenChangeTest, aScreenThatIsUnpluggedAndComesBackShowsThePictureOnSway)
{
    const QString missing = NestedSway::whyNot();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString();
    }
    const PrivateSway outer({QSize(1000, 600)});
    ASSERT_TRUE(outer.isReady());
    const NestedSway sway(outer, 2);
    ASSERT_TRUE(sway.isReady());
    keep(sway.clientEnvironment(), u"wayland"_s, OwnedProgram::User::NotRoot);
    EXPECT_EQ(waitForPicture([&] { return sway.screenshot(u"WL-2"_s); }), QString());
    ASSERT_TRUE(sway.unplug(u"WL-2"_s));
    ASSERT_TRUE(sway.plugIn());
    EXPECT_EQ(waitForPicture([&] { return sway.screenshot(u"WL-3"_s); }), QString());
    EXPECT_EQ(waitForPicture([&] { return sway.screenshot(u"WL-1"_s); }), QString());
}

TEST_F(ScreenChangeTest, aMonitorThatIsAddedShowsThePictureOnX11)
{
    const QString missing = PrivateXServer::missingProgram();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    constexpr QRect kLeft(0, 0, 800, 450);
    constexpr QRect kRight(800, 100, 400, 600);
    PrivateXServer server(QSize(1200, 700));
    ASSERT_TRUE(server.isReady());
    ASSERT_TRUE(server.addMonitor(u"LEFT"_s, kLeft));
    keep(server.clientEnvironment(), u"xcb"_s, OwnedProgram::User::Same);
    EXPECT_EQ(waitForPicture([&] { return server.rootWindow().copy(kLeft); }), QString());
    ASSERT_TRUE(server.addMonitor(u"RIGHT"_s, kRight));
    EXPECT_EQ(waitForPicture([&] { return server.rootWindow().copy(kRight); }), QString());
}

TEST_F(ScreenChangeTest, aPictureOnSurfacesOfOurOwnIsShownAgainWhenTheApplicationStarts)
{
    const QString missing = NestedSway::whyNot();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString();
    }
    const PrivateSway sway({QSize(800, 450)});
    ASSERT_TRUE(sway.isReady());
    const QString screen = u"HEADLESS-1"_s;
    const QImage empty = sway.screenshot(screen);
    QProcessEnvironment environment = sway.clientEnvironment();
    environment.insert(u"QUORVANE_DESKTOP"_s, u"layer-shell"_s);
    keep(environment, u"wayland"_s, OwnedProgram::User::NotRoot);
    EXPECT_EQ(waitForPicture([&] { return sway.screenshot(screen); }), QString());
    m_keeper.reset();
    ASSERT_TRUE(waitFor([&] { return sway.screenshot(screen) == empty; }));

    environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    m_keeper = std::make_unique<OwnedProgram>(QStringLiteral(WALLPAPER_KEEPER), QStringList(), environment, u"/"_s,
                                              OwnedProgram::User::NotRoot);
    EXPECT_EQ(waitForPicture([&] { return sway.screenshot(screen); }), QString());
}

} // namespace quorvane
