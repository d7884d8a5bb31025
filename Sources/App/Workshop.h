#pragma once

#include "Manager/WallpaperManager.h"
#include "Platform/DesktopPicture.h"
#include "Platform/HttpClient.h"
#include "Platform/SecretStore.h"
#include "Platform/UserDefaults.h"
#include "Upscaling/LocalUpscaler.h"

#include <memory>

namespace quorvane {

/// The one manager of a process, and everything that it works with.
struct Workshop
{
    UserDefaults defaults;
    HttpClient http;
    std::unique_ptr<DesktopPicture> desktop = makeDesktopPicture();
    std::unique_ptr<SecretStore> legacyKeys = makeSecretStore();
    WallpaperManager manager{ManagerServices{&defaults, &http, desktop.get(), legacyKeys.get(), localUpscaleImage}};
};

} // namespace quorvane
