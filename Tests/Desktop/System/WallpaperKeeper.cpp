// A program with a display that sets one picture, if it is told one, and then stays, as the application does. It says
// the status.
//
//   WallpaperKeeper [PICTURE]

#include "Manager/WallpaperManager.h"
#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/System/Clock.h"
#include "Platform/System/PowerEvents.h"
#include "Platform/System/Screens.h"
#include "Support/RecordingDesktop.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    using namespace quorvane;
    const QGuiApplication application(argc, argv);
    UserDefaults defaults;
    HttpClient http;
    EmptySecretStore legacyKeys;
    const std::unique_ptr<DesktopPicture> desktop = makeDesktopPicture();
    const std::unique_ptr<Clock> clock = makeSystemClock();
    const std::unique_ptr<PowerEvents> powerEvents = makePowerEvents();
    const std::unique_ptr<Screens> screens = makeScreens();
    WallpaperManager manager({.defaults = &defaults,
                              .http = &http,
                              .desktop = desktop.get(),
                              .legacyKeys = &legacyKeys,
                              .localUpscale = {},
                              .clock = clock.get(),
                              .powerEvents = powerEvents.get(),
                              .screens = screens.get()});
    QObject::connect(&manager, &WallpaperManager::statusChanged, &manager, [&] {
        // The application does so when it ends; this program is killed, perhaps right after it spoke.
        (void)defaults.sync();
        std::puts(manager.status().toUtf8().constData());
        std::fflush(stdout);
    });
    if (argc > 1) {
        manager.setWallpaper(QString::fromLocal8Bit(argv[1]));
    }
    return QCoreApplication::exec();
}
