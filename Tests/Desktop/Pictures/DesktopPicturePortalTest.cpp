// The portal of a real GNOME, which asks the user before the first picture and remembers the answer.

#include "Platform/Desktops/DesktopPicturePortal.h"

#include "BigDesktops.h"

#include "Platform/Bus/MessageBus.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSession.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QDBusMetaType>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Permissions = QMap<QString, QStringList>;

constexpr QSize kSource(1200, 1000);
constexpr std::chrono::seconds kStartLimit{120};
constexpr QSize kScreen(1280, 720);

/// Presses the button of the dialog that asks; throws while there is none.
constexpr char kAllow[] = "Main.layoutManager.modalDialogGroup.get_children()"
                          ".find(each => each._sendResponse && each.state == 0)._sendResponse(0)";

/// Throws while there is such a dialog, and says no to it.
constexpr char kNoQuestion[] =
    "(() => {"
    " const open = Main.layoutManager.modalDialogGroup.get_children().filter(each => each._sendResponse);"
    " open.filter(each => each.state == 0).forEach(each => each._sendResponse(1));"
    " if (open.length > 0) throw new Error('asking');"
    "})()";

const QString kLibexec = u"/usr/libexec/"_s;
const QString kShell = u"org.gnome.Shell"_s;
const QString kPermissions = u"org.freedesktop.impl.portal.PermissionStore"_s;

QString missingPart()
{
    for (const char *name : {"xdg-desktop-portal", "xdg-desktop-portal-gnome", "xdg-desktop-portal-gtk",
                             "xdg-permission-store", "dconf-service"}) {
        if (!QFile::exists(kLibexec + QLatin1String(name))) {
            return kLibexec + QLatin1String(name);
        }
    }
    const QString missing = PrivateSession::missingProgram();
    return missing.isEmpty() ? firstMissing({u"gnome-shell"_s, u"gsettings"_s}) : missing;
}

} // namespace

class DesktopPicturePortalTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (!bigDesktopsAreWanted()) {
            GTEST_SKIP() << kBigDesktopsText;
        }
        ASSERT_EQ(missingPart(), QString()) << "is not installed (scripts/install-packages desktops)";
        qDBusRegisterMetaType<Permissions>();
        m_session = std::make_unique<PrivateSession>(QProcessEnvironment(), OwnedProgram::User::Same);
        ASSERT_TRUE(m_session->isReady());
        m_session->setVariable(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
        m_session->setVariable(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
        m_bus = std::make_unique<MessageBus>(m_session->busAddress());
        m_session->keep(kLibexec + u"dconf-service"_s);
        ASSERT_TRUE(waitForName(u"ca.desrt.dconf"_s));
        // Nothing shall lie over the picture.
        set("org.gnome.shell", "welcome-dialog-last-shown-version", "99.0");
        set("org.gnome.desktop.notifications", "show-banners", "false");
        startShell();
    }

    void set(const char *schema, const char *key, const char *value)
    {
        const QStringList words{u"set"_s, QString::fromLatin1(schema), QString::fromLatin1(key),
                                QString::fromLatin1(value)};
        EXPECT_FALSE(outputOf(u"gsettings"_s, words, m_session->environment()).isNull()) << key;
    }

    void startShell()
    {
        OwnedProgram &shell = m_session->keep(u"gnome-shell"_s, {u"--headless"_s, u"--unsafe-mode"_s, u"--wayland"_s,
                                                                 u"--no-x11"_s, u"--virtual-monitor"_s, u"1280x720"_s});
        ASSERT_TRUE(waitFor([this] { return shellDid("Main.overview.hide()"); }, kStartLimit))
            << shell.errors().constData();
        m_display.wayland = m_session->runtimeFolder() + u"/wayland-0"_s;
        m_session->setVariable(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
        m_session->setVariable(u"GDK_BACKEND"_s, u"wayland"_s);
    }

    void startPortal()
    {
        startService("xdg-permission-store", kPermissions);
        startService("xdg-desktop-portal-gtk", u"org.freedesktop.impl.portal.desktop.gtk"_s);
        startService("xdg-desktop-portal-gnome", u"org.freedesktop.impl.portal.desktop.gnome"_s);
        m_portal = &startService("xdg-desktop-portal", u"org.freedesktop.portal.Desktop"_s);
    }

    OwnedProgram &startService(const char *program, const QString &name)
    {
        OwnedProgram &service = m_session->keep(kLibexec + QLatin1String(program));
        EXPECT_TRUE(waitForName(name)) << program << ": " << service.errors().constData();
        return service;
    }

    [[nodiscard]] MessageBus within(int milliseconds) const { return m_bus->until(QDeadlineTimer(milliseconds)); }

    [[nodiscard]] bool waitForName(const QString &name)
    {
        return waitFor([&] { return within(1000).isOwned(name); }, kStartLimit);
    }

    [[nodiscard]] bool shellDid(const char *script)
    {
        const auto answer =
            within(1000).callOrStart(kShell, u"/org/gnome/Shell"_s, kShell, u"Eval"_s, {QString::fromUtf8(script)});
        return answer && answer->value(0).toBool();
    }

    /// What the desktop remembers of the user's answer.
    void permit(const QString &answer)
    {
        const Permissions permissions{{QString(), {answer}}};
        const auto set = within(5000).callOrStart(
            kPermissions, u"/org/freedesktop/impl/portal/PermissionStore"_s, kPermissions, u"Set"_s,
            {u"wallpaper"_s, true, u"wallpaper"_s, QVariant::fromValue(permissions),
             QVariant::fromValue(QDBusVariant(QVariant::fromValue(uchar(0))))});
        ASSERT_TRUE(set) << set.failure().words.toStdString();
    }

    [[nodiscard]] QImage screenshot()
    {
        EXPECT_TRUE(shellDid("Main.overview.hide()")); // It opens by itself some time after the start.
        const QString file = m_session->runtimeFolder() + u"/shot.png"_s;
        const auto answer =
            within(5000).callOrStart(u"org.gnome.Shell.Screenshot"_s, u"/org/gnome/Shell/Screenshot"_s,
                                     u"org.gnome.Shell.Screenshot"_s, u"Screenshot"_s, {false, false, file});
        return answer ? QImage(file) : QImage();
    }

    [[nodiscard]] QString waitForPicture(int mark)
    {
        QString found;
        (void)waitFor([&] { return (found = differenceFromFill(screenshot(), kSource, mark)).isEmpty(); },
                      std::chrono::seconds(60));
        const QByteArray folder = qgetenv("QUORVANE_TEST_SCREENSHOTS");
        if (!folder.isEmpty()) {
            screenshot().save(QFile::decodeName(folder) + u"/portal-%1.png"_s.arg(mark));
        }
        return found;
    }

    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        const QString path = m_home.library() + '/'_L1 + name;
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(positionPicture(kSource, mark).save(path, "png"));
        return path;
    }

    [[nodiscard]] std::unique_ptr<DesktopPicturePortal>
    makeDesktop(std::chrono::milliseconds limit = kDesktopLimit) const
    {
        return std::make_unique<DesktopPicturePortal>(m_session->busAddress(), m_display, QString(), limit);
    }

    PrivateHome m_home;
    SessionDisplay m_display;
    std::unique_ptr<PrivateSession> m_session;
    std::unique_ptr<MessageBus> m_bus;
    OwnedProgram *m_portal = nullptr;
};

TEST_F(DesktopPicturePortalTest, onceAllowedThePictureIsShown)
{
    EXPECT_FALSE(DesktopPicturePortal::answers(m_session->busAddress())) << "nobody has started it yet";
    ASSERT_NO_FATAL_FAILURE(startPortal());
    EXPECT_TRUE(DesktopPicturePortal::answers(m_session->busAddress()));
    ASSERT_NO_FATAL_FAILURE(permit(u"yes"_s));
    const auto desktop = makeDesktop();
    const QList<Screen> screens = desktop->screens();
    ASSERT_EQ(screens.size(), 1);
    EXPECT_EQ(screens.constFirst().pixels, kScreen);
    const QString path = save(QString::fromUtf8("o'brien #1 100% \"q\" \n Ünïcødé 日本/one.png"), 40);
    ASSERT_EQ(desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(40), QString());
    ASSERT_TRUE(positionPicture(kSource, 200).save(path));
    ASSERT_EQ(desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(200), QString());

    EXPECT_NE(desktop->setPicture(m_home.path() + u"/missing.png"_s, screens), kDone);
    ASSERT_NO_FATAL_FAILURE(permit(u"no"_s));
    EXPECT_NE(desktop->setPicture(save(u"two.png"_s, 90), screens), kDone);
    EXPECT_EQ(waitForPicture(200), QString());
}

TEST_F(DesktopPicturePortalTest, whileTheUserIsAskedItSaysSoAndWaitsUntilItIsTold)
{
    ASSERT_NO_FATAL_FAILURE(startPortal());
    const QString path = save(u"one.png"_s, 40);
    std::atomic<int> questions = 0;
    const auto ask = [&](DesktopPicturePortal &desktop, const std::function<void()> &then) {
        desktop.asking = [&questions](const QString &line) { questions += line.isEmpty() ? 0 : 1; };
        const int before = questions;
        Result<> shown;
        std::atomic<bool> hasEnded = false;
        std::jthread setting([&] {
            shown = desktop.setPicture(path, desktop.screens());
            hasEnded = true;
        });
        EXPECT_TRUE(waitFor([&] { return questions > before; }, kStartLimit));
        EXPECT_FALSE(hasEnded);
        then();
        EXPECT_TRUE(waitFor([&] { return hasEnded.load(); }, kStartLimit));
        setting.join();
        return wordsOf(shown);
    };

    // The user allows it.
    const auto allowed = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*allowed, [&] { EXPECT_TRUE(waitFor([this] { return shellDid(kAllow); }, kStartLimit)); }),
              u"done"_s);
    EXPECT_EQ(waitForPicture(40), QString());

    ASSERT_NO_FATAL_FAILURE(permit(u"ask"_s));
    // The program ends while the question is open, and no new one is asked.
    const auto ending = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*ending, [&] { ending->stopAsking(); }), u"Nobody waits for the desktop's question any more"_s);

    // Newer portals leave the question open although nobody waits for the answer, and ask no other meanwhile.
    ASSERT_TRUE(waitFor([this] { return shellDid(kNoQuestion); }, kStartLimit));

    // The portal dies.
    const auto orphan = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*orphan, [&] { m_portal->signal(SIGKILL); }), u"The desktop's portal ended before it answered"_s);
}

} // namespace quorvane
