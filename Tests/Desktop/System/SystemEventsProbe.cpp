// What a program of ours learns of its machine, a line at a time on standard output:
//
//   SystemEventsProbe screens   the number of changes so far and the screens, at the start and after each change
//   SystemEventsProbe power     "ready", or "none" where nothing tells of sleep

#include "Platform/System/PowerEvents.h"
#include "Platform/System/Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using namespace quorvane;

void print(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

void printScreens(int changes)
{
    QStringList screens;
    for (const QScreen *screen : QGuiApplication::screens()) {
        const QRect area = screen->geometry();
        if (!screen->name().isEmpty() && !area.isEmpty()) {
            screens.append(u"%1=%2x%3+%4+%5"_s.arg(screen->name())
                               .arg(area.width())
                               .arg(area.height())
                               .arg(area.x())
                               .arg(area.y()));
        }
    }
    screens.sort();
    print(u"%1 %2"_s.arg(changes).arg(screens.join(' '_L1)).trimmed());
}

int runScreens()
{
    const std::unique_ptr<Screens> screens = makeScreens();
    int changes = 0;
    QObject::connect(screens.get(), &Screens::changed, screens.get(), [&changes] { printScreens(++changes); });
    printScreens(changes);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "screens") == 0) {
        const QGuiApplication application(argc, argv);
        return runScreens();
    }
    const QCoreApplication application(argc, argv);
    print(makePowerEvents() ? u"ready"_s : u"none"_s);
    return 0;
}
