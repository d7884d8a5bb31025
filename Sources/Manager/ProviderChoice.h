#pragma once

#include "Manager/UpscaleMethod.h"
#include "Providers/ImageProvider.h"
#include "Storage/SideFile.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace quorvane {

using Providers = std::vector<std::unique_ptr<const ImageProvider>>;

/// The provider override that leaves the choice to the rules.
inline constexpr QLatin1String kAutomatic("auto");

/// What the settings say at one moment about who makes a picture, and how. The first of providers is the one that is
/// used where nothing speaks for another; there is one at least, and they outlive what is returned.
struct ProviderChoice
{
    QString override; ///< kAutomatic or a provider's id; one that names no provider behaves like the first one's.
    bool nsfwEnabled = false;
    bool fourKEnabled = false;
    UpscaleMethod upscaleMethod = UpscaleMethod::Gemini;
    TextMap chosenModels; ///< By provider id, as they are stored: they may not be offered any more.

    /// Whether the NSFW switch means anything: to the automatic choice, or to the provider that is chosen.
    [[nodiscard]] bool nsfwApplies(const Providers &providers) const;

    /// The provider that a generation will use.
    [[nodiscard]] const ImageProvider &provider(const Providers &providers) const;

    /// The model that a generation will use.
    [[nodiscard]] QString modelId(const Providers &providers) const;

    /// The chosen model of that provider while it is offered, else the provider's first; empty when there is neither.
    [[nodiscard]] QString modelOf(const Providers &providers, const QString &providerId) const;

    /// Whether provider and model make 4K themselves.
    [[nodiscard]] bool producesNative4K(const Providers &providers) const;

    /// Whether a picture is enlarged after it was generated.
    [[nodiscard]] bool needsUpscale(const Providers &providers) const;

    /// The names of keys that a generation would need and that are not stored, for the user. storedKeyIds are the ids
    /// of the providers whose keys are stored.
    [[nodiscard]] QStringList missingKeys(const Providers &providers, const QSet<QString> &storedKeyIds) const;
};

} // namespace quorvane
