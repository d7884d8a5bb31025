#include "Manager/ProviderChoice.h"

#include "Providers/GeminiProvider.h"
#include "Providers/ImageServices.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ProviderChoice)
};

const ImageProvider *providerWithId(const Providers &providers, const QString &id)
{
    const auto found =
        std::find_if(providers.begin(), providers.end(), [&id](const auto &each) { return each->id() == id; });
    return found == providers.end() ? nullptr : found->get();
}

} // namespace

bool ProviderChoice::nsfwApplies(const Providers &providers) const
{
    const ImageProvider *chosen = providerWithId(providers, override);
    return override == kAutomatic || (chosen != nullptr && chosen->takesNsfw());
}

const ImageProvider &ProviderChoice::provider(const Providers &providers) const
{
    if (const ImageProvider *chosen = providerWithId(providers, override)) {
        return *chosen;
    }
    const auto wanted = std::find_if(providers.begin(), providers.end(), [this](const auto &each) {
        return override == kAutomatic && nsfwEnabled && each->takesNsfw();
    });
    return wanted == providers.end() ? *providers.front() : **wanted;
}

QString ProviderChoice::modelId(const Providers &providers) const
{
    return modelOf(providers, provider(providers).id());
}

QString ProviderChoice::modelOf(const Providers &providers, const QString &providerId) const
{
    const ImageProvider *provider = providerWithId(providers, providerId);
    const QList<ModelOption> models = provider != nullptr ? provider->models() : QList<ModelOption>();
    const auto chosen = chosenModels.find(providerId);
    const bool isOffered = chosen != chosenModels.end() &&
                           std::any_of(models.begin(), models.end(),
                                       [&chosen](const ModelOption &model) { return model.id == chosen->second; });
    if (isOffered) {
        return chosen->second;
    }
    return models.isEmpty() ? QString() : models.first().id;
}

bool ProviderChoice::producesNative4K(const Providers &providers) const
{
    return makes4K(provider(providers).id(), modelId(providers));
}

bool ProviderChoice::needsUpscale(const Providers &providers) const
{
    return fourKEnabled && !producesNative4K(providers);
}

QStringList ProviderChoice::missingKeys(const Providers &providers, const QSet<QString> &storedKeyIds) const
{
    const ImageProvider &chosen = provider(providers);
    QStringList missing;
    if (!storedKeyIds.contains(chosen.id())) {
        missing.append(chosen.name());
    }
    const bool upscalesRemotely = needsUpscale(providers) && upscaleMethod == UpscaleMethod::Gemini;
    if (upscalesRemotely && !storedKeyIds.contains(kGeminiId) && chosen.id() != kGeminiId) {
        missing.append(Tr::tr("Gemini (for 4K upscale)"));
    }
    return missing;
}

} // namespace quorvane
