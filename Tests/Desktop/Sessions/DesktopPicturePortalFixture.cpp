#include "DesktopPicturePortalFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

void DesktopPicturePortalTest::SetUp()
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

void DesktopPicturePortalTest::set(const char *schema, const char *key, const char *value)
{
    const QStringList words{u"set"_s, QString::fromLatin1(schema), QString::fromLatin1(key),
                            QString::fromLatin1(value)};
    EXPECT_FALSE(outputOf(u"gsettings"_s, words, m_session->environment()).isNull()) << key;
}

void DesktopPicturePortalTest::startShell()
{
    OwnedProgram &shell = m_session->keep(u"gnome-shell"_s, {u"--headless"_s, u"--unsafe-mode"_s, u"--wayland"_s,
                                                             u"--no-x11"_s, u"--virtual-monitor"_s, u"1280x720"_s});
    ASSERT_TRUE(waitFor([this] { return shellDid("Main.overview.hide()"); }, kStartLimit))
        << shell.errors().constData();
    m_display.wayland = m_session->runtimeFolder() + u"/wayland-0"_s;
    m_session->setVariable(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
    m_session->setVariable(u"GDK_BACKEND"_s, u"wayland"_s);
}

void DesktopPicturePortalTest::startPortal()
{
    startService("xdg-permission-store", kPermissions);
    startService("xdg-desktop-portal-gtk", u"org.freedesktop.impl.portal.desktop.gtk"_s);
    startService("xdg-desktop-portal-gnome", u"org.freedesktop.impl.portal.desktop.gnome"_s);
    m_portal = &startService("xdg-desktop-portal", u"org.freedesktop.portal.Desktop"_s);
}

OwnedProgram &DesktopPicturePortalTest::startService(const char *program, const QString &name)
{
    OwnedProgram &service = m_session->keep(kLibexec + QLatin1String(program));
    EXPECT_TRUE(waitForName(name)) << program << ": " << service.errors().constData();
    return service;
}

bool DesktopPicturePortalTest::waitForName(const QString &name)
{
    return waitFor([&] { return within(1000).isOwned(name); }, kStartLimit);
}

bool DesktopPicturePortalTest::shellDid(const char *script)
{
    const auto answer =
        within(1000).callOrStart(kShell, u"/org/gnome/Shell"_s, kShell, u"Eval"_s, {QString::fromUtf8(script)});
    return answer && answer->value(0).toBool();
}

void DesktopPicturePortalTest::permit(const QString &answer)
{
    const Permissions permissions{{QString(), {answer}}};
    const auto set = within(5000).callOrStart(kPermissions, u"/org/freedesktop/impl/portal/PermissionStore"_s,
                                              kPermissions, u"Set"_s,
                                              {u"wallpaper"_s, true, u"wallpaper"_s, QVariant::fromValue(permissions),
                                               QVariant::fromValue(QDBusVariant(QVariant::fromValue(uchar(0))))});
    ASSERT_TRUE(set) << set.failure().words.toStdString();
}

QImage DesktopPicturePortalTest::screenshot()
{
    EXPECT_TRUE(shellDid("Main.overview.hide()")); // It opens by itself some time after the start.
    const QString file = m_session->runtimeFolder() + u"/shot.png"_s;
    const auto answer =
        within(5000).callOrStart(u"org.gnome.Shell.Screenshot"_s, u"/org/gnome/Shell/Screenshot"_s,
                                 u"org.gnome.Shell.Screenshot"_s, u"Screenshot"_s, {false, false, file});
    return answer ? QImage(file) : QImage();
}

QString DesktopPicturePortalTest::waitForPicture(int mark)
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

QString DesktopPicturePortalTest::save(const QString &name, int mark) const
{
    const QString path = m_home.library() + '/'_L1 + name;
    QDir().mkpath(QFileInfo(path).path());
    EXPECT_TRUE(positionPicture(kSource, mark).save(path, "png"));
    return path;
}

std::unique_ptr<DesktopPicturePortal> DesktopPicturePortalTest::makeDesktop(std::chrono::milliseconds limit) const
{
    return std::make_unique<DesktopPicturePortal>(m_session->busAddress(), m_display, QString(), limit);
}

} // namespace quorvane
