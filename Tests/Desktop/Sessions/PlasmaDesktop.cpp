#include "PlasmaDesktop.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/Protocols/PlasmaScript.h"
#include "Support/WaitFor.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kStartLimit{60};

/// Started by path: it is in no folder of programs.
QString activityManager()
{
    const QString name = u"kactivitymanagerd"_s;
    const QStringList folders{u"/usr/lib/x86_64-linux-gnu/libexec"_s, u"/usr/lib/aarch64-linux-gnu/libexec"_s,
                              u"/usr/libexec"_s, u"/usr/lib/libexec"_s};
    const QString path = QStandardPaths::findExecutable(name, folders);
    return path.isEmpty() ? name : path;
}

/// The daemon of the Plasma that is installed, 6 or 5.
QString settingsDaemon()
{
    return firstMissing({u"kded6"_s}).isEmpty() ? u"kded6"_s : u"kded5"_s;
}

} // namespace

QList<QStringList> plasmaCommands()
{
    return {{activityManager()}, {settingsDaemon()}, {u"plasmashell"_s, u"--no-respawn"_s}};
}

QString plasmaVersion()
{
    return settingsDaemon().right(1);
}

void describePlasma(PrivateSession *session)
{
    session->setVariable(u"KDE_FULL_SESSION"_s, u"true"_s);
    session->setVariable(u"KDE_SESSION_VERSION"_s, plasmaVersion());
    session->setVariable(u"QT_QUICK_BACKEND"_s, u"software"_s);
}

bool waitForPlasma(const PrivateSession &session)
{
    const MessageBus bus(session.busAddress());
    return waitFor(
        [&] {
            const auto answer = bus.until(QDeadlineTimer(1000))
                                    .call(u"org.kde.plasmashell"_s, u"/PlasmaShell"_s, u"org.kde.PlasmaShell"_s,
                                          u"evaluateScript"_s, {PlasmaScript::reading()});
            const auto report = PlasmaScript::reportOf(answer ? answer->value(0).toString() : QString());
            return report && report->visible() == 2;
        },
        kStartLimit);
}

QString PlasmaDesktop::missing()
{
    const QString missing = X11Desktop::missing();
    return missing.isEmpty() ? firstMissing({u"kwin_x11"_s}) : missing;
}

PlasmaDesktop::PlasmaDesktop(const Plan &plan)
    : X11Desktop(plan)
{
    describePlasma(&session());
    session().setVariable(u"KWIN_COMPOSE"_s, u"N"_s);
}

bool PlasmaDesktop::start()
{
    session().keep(u"kwin_x11"_s);
    return X11Desktop::start() && waitForPlasma(session());
}

} // namespace quorvane
