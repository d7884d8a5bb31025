#pragma once

#include "Providers/GeminiProvider.h"
#include "Providers/GrokProvider.h"
#include "Providers/OpenAIProvider.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace quorvane {

/// A list of providers in display order, each with what is known of it before and without a request.
template <typename... Providers> struct ProviderList
{
    [[nodiscard]] static QList<ImageService> services() { return {Providers::service()...}; }

    /// http must outlive them.
    [[nodiscard]] static std::vector<std::unique_ptr<const ImageProvider>> make(HttpClient &http)
    {
        std::vector<std::unique_ptr<const ImageProvider>> providers;
        (providers.push_back(std::make_unique<Providers>(&http)), ...);
        return providers;
    }
};

/// The list: another provider is one more name here.
using AllProviders = ProviderList<GeminiProvider, GrokProvider, OpenAIProvider>;

/// The ids of the list, in its order.
[[nodiscard]] QStringList serviceIds();

/// Whether that model of that provider makes 4K by itself when it is wanted; false for unknown ones.
[[nodiscard]] bool makes4K(const QString &providerId, const QString &model);

/// Whether the base address of a provider's service may be used. Success for an unknown id.
[[nodiscard]] Result<> checkAddress(const QString &providerId);

} // namespace quorvane
