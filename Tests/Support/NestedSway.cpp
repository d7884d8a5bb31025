#include "Support/NestedSway.h"

#include "Support/WaitFor.h"

#include <QFile>
#include <QLibraryInfo>

namespace quorvane {

namespace {

const QString kSwaymsg = QStringLiteral("swaymsg");
const QString kWaylandDisplay = QStringLiteral("wayland-2"); // The outer sway has the first.

} // namespace

QString NestedSway::whyNot()
{
    const QString missing = PrivateSway::missingProgram();
    if (!missing.isEmpty()) {
        return missing + QStringLiteral(" is not installed");
    }
    const QString plugin =
        QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/libqwayland-generic.so");
    return QFile::exists(plugin) ? QString() : QStringLiteral("qt6-wayland, Qt's way to Wayland, is not installed");
}

NestedSway::NestedSway(const PrivateSway &outer, int screens)
    : m_outer(outer.clientEnvironment())
{
    QProcessEnvironment environment = clientEnvironment();
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), m_outer.value(QStringLiteral("WAYLAND_DISPLAY")));
    environment.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("wayland"));
    environment.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    environment.insert(QStringLiteral("WLR_WL_OUTPUTS"), QString::number(screens));
    // Any configuration will do that starts nothing; the outer one's is such.
    m_program = std::make_unique<OwnedProgram>(
        QStringLiteral("sway"), QStringList{QStringLiteral("-c"), outer.runtimeFolder() + QStringLiteral("/config")},
        environment, outer.runtimeFolder(), OwnedProgram::User::NotRoot);
    const auto hasAllScreens = [&] {
        return QFile::exists(outer.runtimeFolder() + QLatin1Char('/') + kWaylandDisplay) &&
               outputOf(kSwaymsg, {QStringLiteral("-rt"), QStringLiteral("get_outputs")}, clientEnvironment())
                       .count("\"current_mode\"") == screens;
    };
    m_isReady = waitFor([&] { return !m_program->isRunning() || hasAllScreens(); }) && m_program->isRunning();
    if (!m_isReady) {
        qWarning("The inner sway did not start: %s", m_program->errors().constData());
    }
}

QProcessEnvironment NestedSway::clientEnvironment() const
{
    QProcessEnvironment environment = m_outer;
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), kWaylandDisplay);
    environment.insert(QStringLiteral("SWAYSOCK"),
                       m_outer.value(QStringLiteral("XDG_RUNTIME_DIR")) + QStringLiteral("/inner.sock"));
    return environment;
}

bool NestedSway::plugIn() const
{
    return !outputOf(kSwaymsg, {QStringLiteral("create_output")}, clientEnvironment()).isNull();
}

bool NestedSway::unplug(const QString &screen) const
{
    // The window's whole title is "wlroots - WL-1".
    const QString command = QStringLiteral("[title=\"%1$\"] kill").arg(screen);
    return !outputOf(kSwaymsg, {command}, m_outer).isNull();
}

QImage NestedSway::screenshot(const QString &screen) const
{
    const QStringList arguments{QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-o"), screen,
                                QStringLiteral("-")};
    return QImage::fromData(outputOf(QStringLiteral("grim"), arguments, clientEnvironment()), "PPM");
}

} // namespace quorvane
