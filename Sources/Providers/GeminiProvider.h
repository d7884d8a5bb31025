#pragma once

#include "Providers/ImageService.h"

namespace quorvane {

/// The one service that also enlarges pictures, so that others than its own file know its key.
inline constexpr QLatin1String kGeminiId("gemini");

inline constexpr Service kGeminiService{"QUORVANE_GEMINI_BASE_URL", "https://generativelanguage.googleapis.com"};

/// Pictures from the Gemini API, always asked for at 4K and 16:9; wants4K is not looked at.
class GeminiProvider final : public ServiceProvider
{
  public:
    explicit GeminiProvider(HttpClient *http)
        : ServiceProvider(service(), http)
    {
    }

    [[nodiscard]] static ImageService service();
};

/// The picture in the first candidate's first part with "inlineData".
[[nodiscard]] std::optional<PictureInAnswer> firstInlineData(const QJsonObject &answer);

} // namespace quorvane
