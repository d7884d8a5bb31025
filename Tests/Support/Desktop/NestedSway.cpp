#include "Support/Desktop/NestedSway.h"

#include "Support/WaitFor.h"

#include <QFile>
#include <QLibraryInfo>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kSwaymsg = u"swaymsg"_s;
const QString kWaylandDisplay = u"wayland-2"_s; // The outer sway has the first.

} // namespace

QString NestedSway::whyNot()
{
    const QString missing = PrivateSway::missingProgram();
    if (!missing.isEmpty()) {
        return missing + u" is not installed"_s;
    }
    const QString plugin = QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms/libqwayland-generic.so"_s;
    return QFile::exists(plugin) ? QString() : u"qt6-wayland, Qt's way to Wayland, is not installed"_s;
}

NestedSway::NestedSway(const PrivateSway &outer, int screens)
    : m_outer(outer.clientEnvironment())
{
    QProcessEnvironment environment = clientEnvironment();
    environment.insert(u"WAYLAND_DISPLAY"_s, m_outer.value(u"WAYLAND_DISPLAY"_s));
    environment.insert(u"WLR_BACKENDS"_s, u"wayland"_s);
    environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    environment.insert(u"WLR_WL_OUTPUTS"_s, QString::number(screens));
    // Any configuration will do that starts nothing; the outer one's is such.
    m_program = std::make_unique<OwnedProgram>(u"sway"_s, QStringList{u"-c"_s, outer.runtimeFolder() + u"/config"_s},
                                               environment, outer.runtimeFolder(), OwnedProgram::User::NotRoot);
    const auto hasAllScreens = [&] {
        return QFile::exists(outer.runtimeFolder() + '/'_L1 + kWaylandDisplay) &&
               outputOf(kSwaymsg, {u"-rt"_s, u"get_outputs"_s}, clientEnvironment()).count("\"current_mode\"") ==
                   screens;
    };
    m_isReady = waitFor([&] { return !m_program->isRunning() || hasAllScreens(); }) && m_program->isRunning();
    if (!m_isReady) {
        qWarning("The inner sway did not start: %s", m_program->errors().constData());
    }
}

QProcessEnvironment NestedSway::clientEnvironment() const
{
    QProcessEnvironment environment = m_outer;
    environment.insert(u"WAYLAND_DISPLAY"_s, kWaylandDisplay);
    environment.insert(u"SWAYSOCK"_s, m_outer.value(u"XDG_RUNTIME_DIR"_s) + u"/inner.sock"_s);
    return environment;
}

bool NestedSway::plugIn() const
{
    return !outputOf(kSwaymsg, {u"create_output"_s}, clientEnvironment()).isNull();
}

bool NestedSway::unplug(const QString &screen) const
{
    // The window's whole title is "wlroots - WL-1".
    const QString command = u"[title=\"%1$\"] kill"_s.arg(screen);
    return !outputOf(kSwaymsg, {command}, m_outer).isNull();
}

QImage NestedSway::screenshot(const QString &screen) const
{
    const QStringList arguments{u"-t"_s, u"ppm"_s, u"-o"_s, screen, u"-"_s};
    return QImage::fromData(outputOf(u"grim"_s, arguments, clientEnvironment()), "PPM");
}

} // namespace quorvane
