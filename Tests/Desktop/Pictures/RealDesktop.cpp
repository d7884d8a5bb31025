#include "RealDesktop.h"

#include "Platform/Bus/MessageBus.h"
#include "Support/WaitFor.h"

#include <QDBusVariant>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kStartLimit{60};
constexpr std::chrono::seconds kCallLimit{20};

QStringList setting(const char *schema, const char *key, const char *value)
{
    return {u"gsettings"_s, u"set"_s, QString::fromLatin1(schema), QString::fromLatin1(key),
            QString::fromLatin1(value)};
}

/// One on an X server.
class X11Desktop final : public RealDesktop
{
  public:
    explicit X11Desktop(const Plan &plan)
        : X11Desktop(plan, std::make_unique<PrivateXorg>())
    {
    }

    [[nodiscard]] bool isReady() const override { return m_server->isReady() && RealDesktop::isReady(); }
    /// Some lay the screens out when they start, all in one size.
    [[nodiscard]] bool start() override
    {
        return RealDesktop::start() && m_server->layOut() &&
               waitFor([&] { return plan().ready == Plan::Ready::WithName || m_server->announcedPixmap() != 0; },
                       kStartLimit);
    }
    [[nodiscard]] QImage screenshot() override { return m_server->rootWindow(); }
    [[nodiscard]] QList<QRect> areas() override { return m_server->areas(); }
    [[nodiscard]] bool plugIn() override { return m_server->plugIn() && m_server->areas().size() == 3; }
    [[nodiscard]] QString platform() const override { return u"xcb"_s; }

  private:
    X11Desktop(const Plan &plan, std::unique_ptr<PrivateXorg> server)
        : RealDesktop(plan, variables(plan, *server))
        , m_server(std::move(server))
    {
    }

    static QProcessEnvironment variables(const Plan &plan, const PrivateXorg &server)
    {
        QProcessEnvironment environment;
        environment.insert(u"DISPLAY"_s, QString::fromLatin1(server.display()));
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, plan.currentDesktop);
        environment.insert(u"XDG_SESSION_TYPE"_s, u"x11"_s);
        environment.insert(u"GDK_BACKEND"_s, u"x11"_s);
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        return environment;
    }

    std::unique_ptr<PrivateXorg> m_server;
};

/// GNOME on Wayland without hardware. It has two screens; the second is off until it is plugged in, because a virtual
/// screen cannot be added to a shell that runs. Its own interfaces for testing take the screenshots.
class GnomeDesktop final : public RealDesktop
{
  public:
    explicit GnomeDesktop(const Plan &plan)
        : RealDesktop(plan, variables(plan))
    {
    }

    /// Before its start is over, hiding the overview leaves the second screen black. The shell puts the end of its
    /// start off until it has nothing else to do, so asking it again and again would keep it from that: it tells by a
    /// name.
    [[nodiscard]] bool start() override
    {
        const QString started = u"org.gnome.Shell.Started"_s;
        const QString tell = u"imports.gi.Gio.DBus.session.own_name('%1', 0, null, null)"_s.arg(started);
        const QString tellOnceStarted = u"Main.layoutManager._startingUp "
                                        "? Main.layoutManager.connect('startup-complete', () => %1) : %1"_s.arg(tell);
        return RealDesktop::start() && waitFor([&] { return !evaluate(tellOnceStarted).isEmpty(); }, kStartLimit) &&
               waitForName(started) && evaluate(u"Main.overview.hide(); true"_s) == "true"_L1;
    }

    [[nodiscard]] QImage screenshot() override
    {
        const QString file = session().runtimeFolder() + u"/screenshot.png"_s;
        const MessageBus bus(session().busAddress(), QDeadlineTimer(kCallLimit));
        const auto answer = bus.call(u"org.gnome.Shell.Screenshot"_s, u"/org/gnome/Shell/Screenshot"_s,
                                     u"org.gnome.Shell.Screenshot"_s, u"Screenshot"_s, {false, false, file});
        return answer && answer->value(0).toBool() ? QImage(file) : QImage();
    }

    [[nodiscard]] QList<QRect> areas() override
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

    /// Takes the second screen away and brings it back, as somebody does who unplugs a cable.
    [[nodiscard]] bool plugIn() override
    {
        const QString first = u"(0,0,1.0,uint32 0,true,[('Meta-0','1280x720@60.000',@a{sv} {})])"_s;
        const QString second = u"(1280,0,1.0,uint32 0,false,[('Meta-1','800x600@60.000',@a{sv} {})])"_s;
        return arrange(first) && waitFor([&] { return areas().size() == 1; }) && arrange(first + ','_L1 + second) &&
               waitFor([&] { return areas().size() == 2; });
    }

    [[nodiscard]] QString platform() const override { return u"wayland"_s; }

  private:
    static QProcessEnvironment variables(const Plan &plan)
    {
        QProcessEnvironment environment;
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, plan.currentDesktop);
        environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
        environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-0"_s);
        return environment;
    }

    /// What a line of the shell's own language gives, as text.
    [[nodiscard]] QString evaluate(const QString &line)
    {
        const MessageBus bus(session().busAddress(), QDeadlineTimer(kCallLimit));
        const auto answer =
            bus.call(u"org.gnome.Shell"_s, u"/org/gnome/Shell"_s, u"org.gnome.Shell"_s, u"Eval"_s, {line});
        return answer && answer->value(0).toBool() ? answer->value(1).toString() : QString();
    }

    [[nodiscard]] bool arrange(const QString &screens)
    {
        const QString name = u"org.gnome.Mutter.DisplayConfig"_s;
        const QString path = u"/org/gnome/Mutter/DisplayConfig"_s;
        const MessageBus bus(session().busAddress(), QDeadlineTimer(kCallLimit));
        const auto state = bus.call(name, path, name, u"GetCurrentState"_s);
        return state && session().run(u"gdbus"_s, {u"call"_s, u"--session"_s, u"-d"_s, name, u"-o"_s, path, u"-m"_s,
                                                   name + u".ApplyMonitorsConfig"_s, state->value(0).toString(), u"1"_s,
                                                   '['_L1 + screens + ']'_L1, u"@a{sv} {}"_s});
    }
};

template <typename Kind> TestedDesktop tested(const RealDesktop::Plan &plan)
{
    QStringList programs;
    for (const QStringList &command : plan.commands + plan.preparations) {
        programs.append(command.constFirst());
    }
    return {plan.name, plan.isBig, programs, [plan] { return std::make_unique<Kind>(plan); }};
}

/// In no folder of programs since Debian 13.
QString mateSettingsDaemon()
{
    const QString name = u"mate-settings-daemon"_s;
    return firstMissing({name}).isEmpty() ? name : u"/usr/libexec/"_s + name;
}

QStringList words(const char *command)
{
    return QString::fromLatin1(command).split(' '_L1);
}

} // namespace

RealDesktop::RealDesktop(Plan plan, const QProcessEnvironment &variables)
    : m_plan(std::move(plan))
    , m_session(variables)
{
}

bool RealDesktop::start()
{
    for (const QStringList &command : std::as_const(m_plan.preparations)) {
        if (!m_session.run(command.constFirst(), command.mid(1))) {
            return false;
        }
    }
    m_programs.clear();
    for (const QStringList &command : std::as_const(m_plan.commands)) {
        m_programs.push_back(m_session.start(command.constFirst(), command.mid(1)));
    }
    const bool isThere = waitForName(m_plan.painter);
    if (!isThere) {
        qWarning("%s did not start: %s", qUtf8Printable(m_plan.name), m_programs.back()->errors().constData());
    }
    return isThere;
}

void RealDesktop::freeze()
{
    m_programs.back()->signal(SIGSTOP);
}

bool RealDesktop::kill()
{
    m_programs.back()->signal(SIGKILL);
    // A session manager is one program and what draws another.
    const MessageBus bus(m_session.busAddress(), QDeadlineTimer(kCallLimit));
    const QString busName = u"org.freedesktop.DBus"_s;
    const auto painter =
        bus.call(busName, u"/org/freedesktop/DBus"_s, busName, u"GetConnectionUnixProcessID"_s, {m_plan.painter});
    if (painter) {
        ::kill(static_cast<pid_t>(painter->value(0).toUInt()), SIGKILL);
    }
    return waitFor([&] { return !bus.isOwned(m_plan.painter); });
}

bool RealDesktop::waitForName(const QString &name) const
{
    // One connection for all questions: everybody on the bus is told of each that comes and goes.
    const MessageBus bus(m_session.busAddress(), QDeadlineTimer(kStartLimit));
    return waitFor([&] { return bus.isOwned(name); }, kStartLimit);
}

QString TestedDesktop::missing() const
{
    const QString server = PrivateXorg::missingProgram();
    const QString bus = PrivateSession::missingProgram();
    return !server.isEmpty() ? server : !bus.isEmpty() ? bus : firstMissing(programs);
}

const QList<TestedDesktop> &testedDesktops()
{
    const auto text = [](const char *value) { return QString::fromLatin1(value); };
    static const QList<TestedDesktop> desktops{
        tested<X11Desktop>({text("xfce"),
                            text("XFCE"),
                            text("xfce"),
                            text("org.xfce.xfdesktop"),
                            {words("xfwm4 --compositor=off"), words("xfdesktop --disable-wm-check")},
                            {words("xfconf-query -c xfce4-desktop -np /desktop-icons/style -t int -s 0")},
                            RealDesktop::Plan::Crop::FromAll,
                            RealDesktop::Plan::Ready::WithName,
                            false}),
        tested<X11Desktop>({text("lxqt"),
                            text("LXQt"),
                            text("lxqt"),
                            text("org.pcmanfm.PCManFM"),
                            {words("xfwm4 --compositor=off"), words("pcmanfm-qt --desktop --profile=lxqt")},
                            {},
                            RealDesktop::Plan::Crop::FromAll,
                            RealDesktop::Plan::Ready::WithName,
                            false}),
        tested<X11Desktop>({text("mate"),
                            text("MATE"),
                            text("mate"),
                            text("org.mate.Caja"),
                            {words("marco --no-composite"), words("caja --force-desktop --no-default-window")},
                            {setting("org.mate.caja.desktop", "computer-icon-visible", "false"),
                             setting("org.mate.caja.desktop", "home-icon-visible", "false"),
                             setting("org.mate.caja.desktop", "trash-icon-visible", "false")},
                            RealDesktop::Plan::Crop::FromWhatAnotherShows,
                            RealDesktop::Plan::Ready::WhenAnnounced}),
        tested<X11Desktop>({text("mateWithoutIcons"),
                            text("MATE"),
                            text("mate"),
                            text("org.mate.SettingsDaemon"),
                            {{mateSettingsDaemon()}},
                            {setting("org.mate.background", "show-desktop-icons", "false"),
                             // It would lay the screens out at the same time as the test does.
                             setting("org.mate.SettingsDaemon.plugins.xrandr", "active", "false")},
                            RealDesktop::Plan::Crop::FromWhatAnotherShows,
                            RealDesktop::Plan::Ready::WhenAnnounced}),
        tested<X11Desktop>({text("cinnamon"),
                            text("X-Cinnamon"),
                            text("cinnamon"),
                            text("org.Cinnamon"),
                            {words("cinnamon-session-cinnamon")},
                            {setting("org.nemo.desktop", "show-desktop-icons", "false")},
                            RealDesktop::Plan::Crop::FromWhatAnotherShows,
                            RealDesktop::Plan::Ready::WhenAnnounced}),
        tested<X11Desktop>({text("budgie"),
                            text("Budgie:GNOME"),
                            text("gnome"),
                            text("org.budgie_desktop.BudgieWM"),
                            {words("budgie-wm --x11")},
                            {}}),
        tested<GnomeDesktop>({text("gnome"),
                              text("GNOME"),
                              text("gnome"),
                              text("org.gnome.Shell"),
                              {words("gnome-shell --headless --unsafe-mode --wayland --no-x11 "
                                     "--virtual-monitor 1280x720 --virtual-monitor 800x600")},
                              {setting("org.gnome.shell", "welcome-dialog-last-shown-version", "'99.0'")}}),
    };
    return desktops;
}

} // namespace quorvane
