#include "GnomeDesktop.h"

#include "Platform/Bus/MessageBus.h"
#include "Support/WaitFor.h"

#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kStartLimit{60};
constexpr std::chrono::seconds kCallLimit{20};

QProcessEnvironment variablesOf(const RealDesktop::Plan &plan)
{
    QProcessEnvironment environment;
    environment.insert(u"XDG_CURRENT_DESKTOP"_s, plan.currentDesktop);
    environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
    return environment;
}

} // namespace

GnomeDesktop::GnomeDesktop(const Plan &plan)
    : RealDesktop(plan, variablesOf(plan))
{
}

bool GnomeDesktop::start()
{
    // Before its start is over, hiding the overview leaves the second screen black. The shell puts the end of its
    // start off until it has nothing else to do, so asking it again and again would keep it from that: it tells by a
    // name.
    const QString started = u"org.gnome.Shell.Started"_s;
    const QString tell = u"imports.gi.Gio.DBus.session.own_name('%1', 0, null, null)"_s.arg(started);
    const QString tellOnceStarted = u"Main.layoutManager._startingUp "
                                    "? Main.layoutManager.connect('startup-complete', () => %1) : %1"_s.arg(tell);
    return RealDesktop::start() && waitFor([&] { return !evaluate(tellOnceStarted).isEmpty(); }, kStartLimit) &&
           waitForName(started) && evaluate(u"Main.overview.hide(); true"_s) == "true"_L1;
}

QImage GnomeDesktop::screenshot()
{
    const QString file = session().runtimeFolder() + u"/screenshot.png"_s;
    const MessageBus bus(session().busAddress(), QDeadlineTimer(kCallLimit));
    const auto answer = bus.call(u"org.gnome.Shell.Screenshot"_s, u"/org/gnome/Shell/Screenshot"_s,
                                 u"org.gnome.Shell.Screenshot"_s, u"Screenshot"_s, {false, false, file});
    return answer && answer->value(0).toBool() ? QImage(file) : QImage();
}

QList<QRect> GnomeDesktop::areas()
{
    const QString text =
        evaluate(u"Main.layoutManager.monitors.map(m => [m.x, m.y, m.width, m.height].join()).join(';')"_s);
    QList<QRect> result;
    for (const QString &area : QString(text).remove('"'_L1).split(';'_L1)) {
        const QStringList numbers = area.split(','_L1);
        result.append(QRect(numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt(),
                            numbers.value(3).toInt()));
    }
    return result;
}

bool GnomeDesktop::plugIn()
{
    const QString first = u"(0,0,1.0,uint32 0,true,[('Meta-0','1280x720@60.000',@a{sv} {})])"_s;
    const QString second = u"(1280,0,1.0,uint32 0,false,[('Meta-1','800x600@60.000',@a{sv} {})])"_s;
    return arrange(first) && waitFor([&] { return areas().size() == 1; }) && arrange(first + ','_L1 + second) &&
           waitFor([&] { return areas().size() == 2; });
}

QString GnomeDesktop::evaluate(const QString &line)
{
    const MessageBus bus(session().busAddress(), QDeadlineTimer(kCallLimit));
    const auto answer = bus.call(u"org.gnome.Shell"_s, u"/org/gnome/Shell"_s, u"org.gnome.Shell"_s, u"Eval"_s, {line});
    return answer && answer->value(0).toBool() ? answer->value(1).toString() : QString();
}

bool GnomeDesktop::arrange(const QString &screens)
{
    const QString name = u"org.gnome.Mutter.DisplayConfig"_s;
    const QString path = u"/org/gnome/Mutter/DisplayConfig"_s;
    const MessageBus bus(session().busAddress(), QDeadlineTimer(kCallLimit));
    const auto state = bus.call(name, path, name, u"GetCurrentState"_s);
    return state && session().run(u"gdbus"_s, {u"call"_s, u"--session"_s, u"-d"_s, name, u"-o"_s, path, u"-m"_s,
                                               name + u".ApplyMonitorsConfig"_s, state->value(0).toString(), u"1"_s,
                                               '['_L1 + screens + ']'_L1, u"@a{sv} {}"_s});
}

} // namespace quorvane
