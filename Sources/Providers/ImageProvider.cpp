#include "Providers/ImageProvider.h"

#include "Providers/GeminiProvider.h"
#include "Providers/GrokProvider.h"
#include "Providers/OpenAIProvider.h"

namespace quorvane {

std::vector<std::unique_ptr<const ImageProvider>> allProviders(HttpClient &http)
{
    std::vector<std::unique_ptr<const ImageProvider>> providers;
    providers.push_back(std::make_unique<GeminiProvider>(&http));
    providers.push_back(std::make_unique<GrokProvider>(&http));
    providers.push_back(std::make_unique<OpenAIProvider>(&http));
    return providers;
}

} // namespace quorvane
