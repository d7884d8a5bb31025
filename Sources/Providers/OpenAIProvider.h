#pragma once

#include "Providers/ImageService.h"

namespace quorvane {

inline constexpr Service kOpenAIService{"QUORVANE_OPENAI_BASE_URL", "https://api.openai.com"};

/// Pictures from OpenAI. The only service that looks at wants4K: "gpt-image-2" paints 3840×2160 itself.
class OpenAIProvider final : public ServiceProvider
{
  public:
    explicit OpenAIProvider(HttpClient *http)
        : ServiceProvider(service(), http)
    {
    }

    [[nodiscard]] static ImageService service();
};

} // namespace quorvane
