#pragma once

#include "Upscaling/LocalUpscaler.h"

#include <QByteArray>
#include <QCoroTask>

#include <functional>
#include <stop_token>

namespace quorvane {

class Clock;
class DesktopPicture;
class HttpClient;
class PowerEvents;
class Screens;
class SecretStore;
class UserDefaults;

/// Enlarges an encoded picture on this machine. Throws ProviderError or what the engine throws; ends early when asked
/// to stop. The last argument is called on the calling thread.
using LocalUpscale = std::function<QCoro::Task<EncodedImage>(QByteArray image, std::stop_token stop,
                                                             std::function<void(UpscaleProgress)> progress)>;

/// What the manager works with. Everything outlives it.
struct ManagerServices
{
    UserDefaults *defaults;
    HttpClient *http;
    DesktopPicture *desktop;
    SecretStore *legacyKeys;
    LocalUpscale localUpscale;
    /// Null in a process that will not be there when a timed generation is due: nothing is scheduled then, and pictures
    /// are named by the system's clock.
    Clock *clock = nullptr;
    PowerEvents *powerEvents = nullptr; ///< May be null: then nothing but the schedule itself catches up after a sleep.
    Screens *screens = nullptr;         ///< May be null: then nothing follows a change of the screens.
};

} // namespace quorvane
