#include "Manager/ProviderChoice.h"

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

bool ProviderChoice::nsfwApplies() const
{
    return override == "auto"_L1 || override == "grok"_L1;
}

const ImageProvider &ProviderChoice::provider(const Providers &providers) const
{
    const bool isAuto = override == "auto"_L1;
    if (!isAuto) {
        if (const ImageProvider *chosen = providerWithId(providers, override)) {
            return *chosen;
        }
    }
    const bool wantsGrok = isAuto && nsfwEnabled;
    const ImageProvider *provider = providerWithId(providers, wantsGrok ? u"grok"_s : u"gemini"_s);
    Q_ASSERT(provider != nullptr);
    return *provider;
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
    if (upscalesRemotely && !storedKeyIds.contains(u"gemini"_s) && !missing.contains(u"Gemini"_s)) {
        missing.append(Tr::tr("Gemini (for 4K upscale)"));
    }
    return missing;
}

} // namespace quorvane
