#include "PlasmaWaylandDesktop.h"

#include "PlasmaDesktop.h"

#include "Platform/Desktops/SessionDisplay.h"
#include "Support/WaitFor.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kStartLimit{60};
const QRect kFirst(0, 0, 1280, 720);
const QRect kSecond(1280, 0, 800, 600);

QProcessEnvironment variablesOf(const RealDesktop::Plan &plan)
{
    QProcessEnvironment environment;
    environment.insert(u"XDG_CURRENT_DESKTOP"_s, plan.currentDesktop);
    return environment;
}

} // namespace

QString PlasmaWaylandDesktop::missing()
{
    const QString missing = PrivateSway::missingProgram();
    if (!missing.isEmpty()) {
        return missing;
    }
    // Plasma 5 needs the older Qt's way to Wayland.
    const QDir libraries(u"/usr/lib"_s);
    const QString version = plasmaVersion();
    const QStringList triplets = libraries.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    const bool hasPlugin = std::any_of(triplets.begin(), triplets.end(), [&](const QString &triplet) {
        return QFile::exists(libraries.filePath(triplet) +
                             u"/qt%1/plugins/platforms/libqwayland-generic.so"_s.arg(version));
    });
    return hasPlugin ? firstMissing({u"kwin_wayland"_s, u"kscreen-doctor"_s}) : u"qtwayland"_s + version;
}

PlasmaWaylandDesktop::PlasmaWaylandDesktop(const Plan &plan)
    : RealDesktop(plan, variablesOf(plan))
    , m_sway({QSize(2560, 720)}, "default_border none\nfor_window [title=\".*\"] floating enable\n")
{
    describePlasma(&session());
    session().setVariable(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    session().setVariable(u"WAYLAND_DISPLAY"_s, u"wayland-9"_s);
    session().setVariable(u"KWIN_COMPOSE"_s, u"Q"_s);
    if (plasmaVersion() == "6"_L1) {
        session().environment().remove(u"QT_QUICK_BACKEND"_s); // With it, Plasma 6 leaves the desktops black here.
    }
}

bool PlasmaWaylandDesktop::start()
{
    if (!startCompositor()) {
        return false;
    }
    session().setVariable(u"QT_QPA_PLATFORM"_s, platform());
    return RealDesktop::start() && waitForPlasma(session());
}

bool PlasmaWaylandDesktop::startCompositor()
{
    // A copy has not the rights of the installed one, which a container does not grant.
    const QString compositor = session().runtimeFolder() + u"/kwin_wayland"_s;
    const bool isPrepared =
        QFile::copy(QStandardPaths::findExecutable(u"kwin_wayland"_s), compositor) &&
        QFile::link(m_sway.runtimeFolder() + u"/wayland-1"_s, session().runtimeFolder() + u"/wayland-1"_s);
    if (!isPrepared) {
        return false;
    }
    session().keep(compositor, u"--wayland-display wayland-1 --width 1280 --height 720 --output-count 2 "
                               "--socket wayland-9 --no-lockscreen --no-global-shortcuts"_s.split(' '_L1));
    return arrangeWindows();
}

bool PlasmaWaylandDesktop::arrangeWindows() const
{
    return waitFor([&] { return screens().size() == 2; }, kStartLimit) &&
           waitFor([&] { return tellSway(u"[title=\"WL-0\"] move absolute position 0 0"_s); }) &&
           waitFor([&] { return tellSway(u"[title=\"WL-1\"] resize set 800 600, move absolute position 1280 0"_s); }) &&
           waitFor([&] {
               const QList<Screen> now = screens();
               return std::any_of(now.begin(), now.end(),
                                  [](const Screen &screen) { return screen.pixels == kSecond.size(); });
           });
}

QList<Screen> PlasmaWaylandDesktop::screens() const
{
    return SessionDisplay{session().runtimeFolder() + u"/wayland-9"_s, {}}.screens(std::chrono::seconds(1));
}

bool PlasmaWaylandDesktop::tellSway(const QString &command) const
{
    return !outputOf(u"swaymsg"_s, {command}, m_sway.clientEnvironment()).isNull();
}

QList<QRect> PlasmaWaylandDesktop::areas()
{
    return {kFirst, kSecond};
}

bool PlasmaWaylandDesktop::plugIn()
{
    return session().run(u"kscreen-doctor"_s, {u"output.WL-1.disable"_s}) &&
           waitFor([&] { return screens().size() == 1; }) &&
           session().run(u"kscreen-doctor"_s, {u"output.WL-1.enable"_s}) && arrangeWindows();
}

} // namespace quorvane
