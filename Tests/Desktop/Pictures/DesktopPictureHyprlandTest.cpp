// Hyprland and hyprpaper are not packaged everywhere, so what answers here is a small listener on a real socket that
// speaks the documented protocol: one request a connection, one reply, and the end. What our own surfaces show where
// nobody listens is judged by the pixels of a real compositor.

#include "Desktop/Pictures/Hyprpaper.h"

#include "Platform/Desktops/DesktopPictureHyprland.h"

#include "Platform/Files/Paths.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kSource(1200, 1000);

class DesktopPictureHyprlandTest : public testing::Test
{
  protected:
    [[nodiscard]] QString socket() const { return m_home.path() + u"/.hyprpaper.sock"_s; }

    [[nodiscard]] DesktopPictureHyprland makeDesktop(const QString &display = {}) const
    {
        return {{m_home.path() + u"/nowhere"_s, m_home.path()}, display, {}, ProgramLife::Application};
    }

    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        const QString path = m_home.library() + '/'_L1 + name;
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(positionPicture(kSource, mark).save(path, "png"));
        return path;
    }

    PrivateHome m_home;
    const QList<Screen> m_screens{{u"DP-1"_s, QSize(800, 450)}, {u"DP-2"_s, QSize(400, 600)}};
};

} // namespace

TEST_F(DesktopPictureHyprlandTest, tellsHyprpaperThePictureOfEachScreenAndLetsTheOldOneGo)
{
    const Hyprpaper hyprpaper(socket());
    DesktopPictureHyprland desktop = makeDesktop();
    EXPECT_FALSE(desktop.endsWithTheProgram());
    const QString first = save(u"one.png"_s, 40);
    ASSERT_EQ(desktop.setPicture(first, m_screens), kDone);
    EXPECT_EQ(hyprpaper.shown(), (QMap<QString, QString>{{u"DP-1"_s, first}, {u"DP-2"_s, first}}));
    const QString second = save(u"two.png"_s, 40);
    ASSERT_EQ(desktop.setPicture(second, m_screens), kDone);
    EXPECT_EQ(hyprpaper.loaded(), QStringList{second});
}

TEST_F(DesktopPictureHyprlandTest, aPathThatHyprpaperHasReadAlreadyOrCannotReadIsCopied)
{
    const Hyprpaper hyprpaper(socket());
    DesktopPictureHyprland desktop = makeDesktop();
    const QString path = save(u"one.png"_s, 40);
    ASSERT_EQ(desktop.setPicture(path, m_screens), kDone);
    ASSERT_EQ(desktop.setPicture(path, m_screens), kDone);
    EXPECT_EQ(hyprpaper.loaded(), QStringList{path}) << "the same content is the same file";
    for (const QString &name : {u"one.png"_s, QString::fromUtf8("a, b #\n日本/two.png")}) {
        const QString other = save(name, 200);
        ASSERT_EQ(desktop.setPicture(other, m_screens), kDone);
        ASSERT_EQ(hyprpaper.loaded().size(), 1);
        const QString copy = hyprpaper.loaded().constFirst();
        EXPECT_TRUE(copy.startsWith(Paths::stateHome()));
        EXPECT_EQ(contentOf(copy), contentOf(other));
        EXPECT_EQ(QFileInfo(copy).dir().entryList(QDir::Files).size(), 1) << "the copy before is deleted";
    }
}

TEST_F(DesktopPictureHyprlandTest, anOlderOneWithoutListsDoesAsWell)
{
    const Hyprpaper hyprpaper(socket(), Hyprpaper::Version::Old);
    DesktopPictureHyprland desktop = makeDesktop();
    const QString path = save(u"one.png"_s, 40);
    ASSERT_EQ(desktop.setPicture(path, m_screens), kDone);
    ASSERT_EQ(desktop.setPicture(save(u"one.png"_s, 90), m_screens), kDone);
    EXPECT_NE(hyprpaper.shown().value(u"DP-2"_s), path);
    EXPECT_TRUE(QFile::exists(hyprpaper.shown().value(u"DP-2"_s)));
}

TEST_F(DesktopPictureHyprlandTest, aRefusalIsInItsOwnWordsAndLeavesNoCopy)
{
    DesktopPictureHyprland desktop = makeDesktop();
    const Hyprpaper hyprpaper(socket());
    const QString path = save(QString::fromUtf8("a b/one.png"), 40);
    const QList<Screen> strange{{u"DP,1"_s, QSize(1, 1)}};
    EXPECT_EQ(desktop.setPicture(path, strange), Failure{u"wallpaper failed (not preloaded)"_s});
    EXPECT_EQ(QDir(Paths::stateHome() + u"/quorvane"_s).entryList(QDir::Files), QStringList());
    EXPECT_NE(desktop.setPicture(m_home.path() + u"/missing.png"_s, m_screens), kDone);
    EXPECT_EQ(hyprpaper.shown().size(), 0);
}

TEST_F(DesktopPictureHyprlandTest, withoutHyprpaperOrWithAnotherProtocolOurOwnSurfacesShowIt)
{
    if (const QString missing = PrivateSway::missingProgram(); !missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    const PrivateSway sway({QSize(800, 450)});
    ASSERT_TRUE(sway.isReady());
    DesktopPictureHyprland desktop = makeDesktop(sway.runtimeFolder() + u"/wayland-1"_s);
    const auto shows = [&sway](int mark) {
        return waitFor([&] { return differenceFromFill(sway.screenshot(u"HEADLESS-1"_s), kSource, mark).isEmpty(); });
    };
    EXPECT_TRUE(desktop.endsWithTheProgram());
    ASSERT_EQ(desktop.setPicture(save(u"one.png"_s, 40), desktop.screens()), kDone);
    EXPECT_TRUE(shows(40));
    {
        const Hyprpaper other(socket(), Hyprpaper::Version::Binary);
        ASSERT_EQ(desktop.setPicture(save(u"two.png"_s, 90), desktop.screens()), kDone);
        EXPECT_TRUE(shows(90));
    }
    // As soon as it is there, hyprpaper's own picture must be seen.
    QFile::remove(socket());
    const Hyprpaper hyprpaper(socket());
    ASSERT_EQ(desktop.setPicture(save(u"three.png"_s, 140), desktop.screens()), kDone);
    EXPECT_EQ(hyprpaper.shown().size(), 1);
    EXPECT_TRUE(waitFor([&] { return !differenceFromFill(sway.screenshot(u"HEADLESS-1"_s), kSource, 90).isEmpty(); }));
}

TEST_F(DesktopPictureHyprlandTest, isThereWhenItListensAndItsSignatureIsAFoldersName)
{
    EXPECT_FALSE(DesktopPictureHyprland::answers({m_home.path()}));
    const Hyprpaper hyprland(m_home.path() + u"/.socket.sock"_s, Hyprpaper::Version::Binary);
    EXPECT_TRUE(DesktopPictureHyprland::answers({m_home.path()}));
    EXPECT_EQ(DesktopPictureHyprland::socketFolders(u"../other"_s), QStringList());
    EXPECT_EQ(DesktopPictureHyprland::socketFolders(QString()), QStringList());
    EXPECT_TRUE(DesktopPictureHyprland::socketFolders(u"v1_2"_s).contains(u"/tmp/hypr/v1_2"_s));
}

} // namespace quorvane
