#pragma once

#include "Providers/ImageService.h"

namespace quorvane {

inline constexpr Service kGrokService{"QUORVANE_XAI_BASE_URL", "https://api.x.ai"};

/// Pictures from xAI. There is no size to ask for; wants4K is not looked at, and every picture is stored as "jpg".
class GrokProvider final : public ServiceProvider
{
  public:
    explicit GrokProvider(HttpClient *http)
        : ServiceProvider(service(), http)
    {
    }

    [[nodiscard]] static ImageService service();
};

} // namespace quorvane
