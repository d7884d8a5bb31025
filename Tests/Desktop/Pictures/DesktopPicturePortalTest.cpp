// The portal of a real GNOME, which asks the user before the first picture and remembers the answer.

#include "Platform/Desktops/DesktopPicturePortal.h"

#include "BigDesktops.h"
#include "DesktopSession.h"

#include "Platform/Bus/BusClient.h"
#include "Support/Files.h"
#include "Support/PositionPicture.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

#include <QDBusMetaType>
#include <QDBusVariant>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

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

const QString kLibexec = QStringLiteral("/usr/libexec/");
const QString kShell = QStringLiteral("org.gnome.Shell");
const QString kPermissions = QStringLiteral("org.freedesktop.impl.portal.PermissionStore");

QString missingPart()
{
    for (const char *name : {"xdg-desktop-portal", "xdg-desktop-portal-gnome", "xdg-desktop-portal-gtk",
                             "xdg-permission-store", "dconf-service"}) {
        if (!QFile::exists(kLibexec + QLatin1String(name))) {
            return kLibexec + QLatin1String(name);
        }
    }
    return DesktopSession::missing({QStringLiteral("gnome-shell"), QStringLiteral("gsettings")});
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
        m_session = std::make_unique<DesktopSession>();
        ASSERT_TRUE(m_session->isReady());
        m_session->environment().insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"));
        m_session->environment().insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
        m_client = std::make_unique<BusClient>(m_session->busAddress());
        m_session->start(kLibexec + QStringLiteral("dconf-service"));
        ASSERT_TRUE(waitForName(QStringLiteral("ca.desrt.dconf")));
        // Nothing shall lie over the picture.
        set("org.gnome.shell", "welcome-dialog-last-shown-version", "99.0");
        set("org.gnome.desktop.notifications", "show-banners", "false");
        startShell();
    }

    void set(const char *schema, const char *key, const char *value)
    {
        const QStringList words{QStringLiteral("set"), QString::fromLatin1(schema), QString::fromLatin1(key),
                                QString::fromLatin1(value)};
        EXPECT_FALSE(outputOf(QStringLiteral("gsettings"), words, m_session->environment()).isNull()) << key;
    }

    void startShell()
    {
        OwnedProgram &shell = m_session->start(QStringLiteral("gnome-shell"),
                                               {QStringLiteral("--headless"), QStringLiteral("--unsafe-mode"),
                                                QStringLiteral("--wayland"), QStringLiteral("--no-x11"),
                                                QStringLiteral("--virtual-monitor"), QStringLiteral("1280x720")});
        ASSERT_TRUE(waitFor([this] { return shellDid("Main.overview.hide()"); }, kStartLimit))
            << shell.errors().constData();
        m_display.wayland = m_session->runtimeFolder() + QStringLiteral("/wayland-0");
        m_session->environment().insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-0"));
        m_session->environment().insert(QStringLiteral("GDK_BACKEND"), QStringLiteral("wayland"));
    }

    void startPortal()
    {
        startService("xdg-permission-store", kPermissions);
        startService("xdg-desktop-portal-gtk", QStringLiteral("org.freedesktop.impl.portal.desktop.gtk"));
        startService("xdg-desktop-portal-gnome", QStringLiteral("org.freedesktop.impl.portal.desktop.gnome"));
        m_portal = &startService("xdg-desktop-portal", QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    OwnedProgram &startService(const char *program, const QString &name)
    {
        OwnedProgram &service = m_session->start(kLibexec + QLatin1String(program));
        EXPECT_TRUE(waitForName(name)) << program << ": " << service.errors().constData();
        return service;
    }

    [[nodiscard]] bool waitForName(const QString &name)
    {
        return waitFor([&] { return m_client->isOwned(name, QDeadlineTimer(1000)); }, kStartLimit);
    }

    [[nodiscard]] bool shellDid(const char *script)
    {
        const auto answer = m_client->call(
            QDBusMessage::createMethodCall(kShell, QStringLiteral("/org/gnome/Shell"), kShell, QStringLiteral("Eval")),
            {QString::fromUtf8(script)}, QDeadlineTimer(1000));
        return answer.arguments.value(0).toBool();
    }

    /// What the desktop remembers of the user's answer.
    void permit(const QString &answer)
    {
        const Permissions permissions{{QString(), {answer}}};
        const auto set = m_client->call(
            QDBusMessage::createMethodCall(kPermissions, QStringLiteral("/org/freedesktop/impl/portal/PermissionStore"),
                                           kPermissions, QStringLiteral("Set")),
            {QStringLiteral("wallpaper"), true, QStringLiteral("wallpaper"), QVariant::fromValue(permissions),
             QVariant::fromValue(QDBusVariant(QVariant::fromValue(uchar(0))))},
            QDeadlineTimer(5000));
        ASSERT_EQ(set.error, QString());
    }

    [[nodiscard]] QImage screenshot()
    {
        EXPECT_TRUE(shellDid("Main.overview.hide()")); // It opens by itself some time after the start.
        const QString file = m_session->folder() + QStringLiteral("/shot.png");
        const auto answer = m_client->call(QDBusMessage::createMethodCall(QStringLiteral("org.gnome.Shell.Screenshot"),
                                                                          QStringLiteral("/org/gnome/Shell/Screenshot"),
                                                                          QStringLiteral("org.gnome.Shell.Screenshot"),
                                                                          QStringLiteral("Screenshot")),
                                           {false, false, file}, QDeadlineTimer(5000));
        return answer.error.isEmpty() ? QImage(file) : QImage();
    }

    [[nodiscard]] QString waitForPicture(int mark)
    {
        QString found;
        (void)waitFor([&] { return (found = differenceFromFill(screenshot(), kSource, mark)).isEmpty(); },
                      std::chrono::seconds(60));
        const QByteArray folder = qgetenv("QUORVANE_TEST_SCREENSHOTS");
        if (!folder.isEmpty()) {
            screenshot().save(QFile::decodeName(folder) + QStringLiteral("/portal-%1.png").arg(mark));
        }
        return found;
    }

    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        const QString path = m_home.library() + QLatin1Char('/') + name;
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
    std::unique_ptr<DesktopSession> m_session;
    std::unique_ptr<BusClient> m_client;
    OwnedProgram *m_portal = nullptr;
};

TEST_F(DesktopPicturePortalTest, onceAllowedThePictureIsShown)
{
    EXPECT_FALSE(DesktopPicturePortal::answers(m_session->busAddress())) << "nobody has started it yet";
    ASSERT_NO_FATAL_FAILURE(startPortal());
    EXPECT_TRUE(DesktopPicturePortal::answers(m_session->busAddress()));
    ASSERT_NO_FATAL_FAILURE(permit(QStringLiteral("yes")));
    const auto desktop = makeDesktop();
    const QList<Screen> screens = desktop->screens();
    ASSERT_EQ(screens.size(), 1);
    EXPECT_EQ(screens.constFirst().pixels, kScreen);
    const QString path = save(QString::fromUtf8("o'brien #1 100% \"q\" \n Ünïcødé 日本/one.png"), 40);
    ASSERT_EQ(desktop->setPicture(path, screens), std::nullopt);
    EXPECT_EQ(waitForPicture(40), QString());
    ASSERT_TRUE(positionPicture(kSource, 200).save(path));
    ASSERT_EQ(desktop->setPicture(path, screens), std::nullopt);
    EXPECT_EQ(waitForPicture(200), QString());

    EXPECT_NE(desktop->setPicture(m_home.path() + QStringLiteral("/missing.png"), screens), std::nullopt);
    ASSERT_NO_FATAL_FAILURE(permit(QStringLiteral("no")));
    EXPECT_NE(desktop->setPicture(save(QStringLiteral("two.png"), 90), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(200), QString());
}

TEST_F(DesktopPicturePortalTest, whileTheUserIsAskedItSaysSoAndWaitsUntilItIsTold)
{
    ASSERT_NO_FATAL_FAILURE(startPortal());
    const QString path = save(QStringLiteral("one.png"), 40);
    std::atomic<int> questions = 0;
    const auto ask = [&](DesktopPicturePortal &desktop, const std::function<void()> &then) {
        desktop.asking = [&questions](const QString &line) { questions += line.isEmpty() ? 0 : 1; };
        const int before = questions;
        std::optional<QString> failure;
        std::atomic<bool> hasEnded = false;
        std::jthread setting([&] {
            failure = desktop.setPicture(path, desktop.screens());
            hasEnded = true;
        });
        EXPECT_TRUE(waitFor([&] { return questions > before; }, kStartLimit));
        EXPECT_FALSE(hasEnded);
        then();
        EXPECT_TRUE(waitFor([&] { return hasEnded.load(); }, kStartLimit));
        setting.join();
        return failure.value_or(QStringLiteral("it was set"));
    };

    // The user allows it.
    const auto allowed = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*allowed, [&] { EXPECT_TRUE(waitFor([this] { return shellDid(kAllow); }, kStartLimit)); }),
              QStringLiteral("it was set"));
    EXPECT_EQ(waitForPicture(40), QString());

    ASSERT_NO_FATAL_FAILURE(permit(QStringLiteral("ask")));
    // The program ends while the question is open, and no new one is asked.
    const auto ending = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*ending, [&] { ending->stopAsking(); }),
              QStringLiteral("Nobody waits for the desktop's question any more"));

    // Newer portals leave the question open although nobody waits for the answer, and ask no other meanwhile.
    ASSERT_TRUE(waitFor([this] { return shellDid(kNoQuestion); }, kStartLimit));

    // The portal dies.
    const auto orphan = makeDesktop(std::chrono::milliseconds(1500));
    EXPECT_EQ(ask(*orphan, [&] { m_portal->signal(SIGKILL); }),
              QStringLiteral("The desktop's portal ended before it answered"));
}

} // namespace quorvane
