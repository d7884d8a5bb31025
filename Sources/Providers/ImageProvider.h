#pragma once

#include "Providers/EncodedImage.h"
#include "Providers/ModelOption.h"

#include <QCoroTask>
#include <QList>
#include <QString>

#include <memory>
#include <stop_token>
#include <vector>

namespace quorvane {

class HttpClient;

/// The contract of an outside image service.
class ImageProvider
{
  public:
    ImageProvider() = default;
    ImageProvider(const ImageProvider &) = delete;
    ImageProvider &operator=(const ImageProvider &) = delete;
    ImageProvider(ImageProvider &&) = delete;
    ImageProvider &operator=(ImageProvider &&) = delete;
    virtual ~ImageProvider() = default;

    /// The name that the user reads.
    [[nodiscard]] virtual QString name() const = 0;

    /// The stable identifier: key file, settings and the provider override use it.
    [[nodiscard]] virtual QString id() const = 0;

    /// The name with its maker's, for who enters a key of it.
    [[nodiscard]] virtual QString keyTitle() const = 0;

    /// What a key of it is used for, a sentence for the user.
    [[nodiscard]] virtual QString keyUse() const = 0;

    /// Whether the automatic choice falls on it where the user wants NSFW pictures.
    [[nodiscard]] virtual bool takesNsfw() const = 0;

    /// The models on offer, in display order; the first is the default.
    [[nodiscard]] virtual QList<ModelOption> models() const = 0;

    /// Asks the service for a picture. The prompt goes out as typed; model is an id of models(). Throws ProviderError.
    /// Comes back on the calling thread; parsing and decoding happen on a worker. Any number may run at once. A stop
    /// ends the request on the wire, which fails then.
    [[nodiscard]] virtual QCoro::Task<EncodedImage> generate(QString prompt, QString apiKey, QString model,
                                                             bool wants4K, std::stop_token stop = {}) const = 0;
};

/// Gemini, Grok, OpenAI, in this order, as ImageServices.h lists them. http must outlive them.
[[nodiscard]] std::vector<std::unique_ptr<const ImageProvider>> allProviders(HttpClient &http);

} // namespace quorvane
