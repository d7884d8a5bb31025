#pragma once

#include "Manager/WallpaperManager.h"
#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Secrets/SecretStore.h"
#include "Platform/System/Clock.h"
#include "Platform/System/PowerEvents.h"
#include "Platform/System/Screens.h"
#include "Platform/Threads/TaskScope.h"
#include "Upscaling/LocalUpscaler.h"

#include <memory>

namespace quorvane {

/// The one manager of a process, and everything that it works with.
struct Services
{
    UserDefaults defaults;
    HttpClient http;
    std::unique_ptr<DesktopPicture> desktop;
    std::unique_ptr<SecretStore> legacyKeys = makeSecretStore();
    std::unique_ptr<Clock> clock;
    std::unique_ptr<PowerEvents> powerEvents;
    std::unique_ptr<Screens> screens;
    TaskScope tasks; ///< What commands do beside the manager, and after the last that it tells: it goes before them.
    WallpaperManager manager;

    /// Only what stays has a schedule, and follows sleep and screens; a command is gone before any of it matters.
    enum class Life { OneCommand, Application };

    explicit Services(Life life)
        : desktop(makeDesktopPicture(life == Life::Application ? ProgramLife::Application : ProgramLife::OneCommand))
        , clock(life == Life::Application ? makeSystemClock() : nullptr)
        , powerEvents(life == Life::Application ? makePowerEvents() : nullptr)
        , screens(life == Life::Application ? makeScreens() : nullptr)
        , manager({.defaults = &defaults,
                   .http = &http,
                   .desktop = desktop.get(),
                   .legacyKeys = legacyKeys.get(),
                   .localUpscale = localUpscaleImage,
                   .clock = clock.get(),
                   .powerEvents = powerEvents.get(),
                   .screens = screens.get()})
    {
    }
};

} // namespace quorvane
