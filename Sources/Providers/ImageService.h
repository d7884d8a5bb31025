#pragma once

#include "Providers/ImageProvider.h"
#include "Providers/ServiceRequest.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <chrono>
#include <optional>

namespace quorvane {

/// Whether a model makes pictures of 3840 pixels across itself, so that nothing need be enlarged.
enum class Makes4K { Never, Always, WhenAsked };

/// One model of a service, and what it makes.
struct ServiceModel
{
    ModelOption option;
    Makes4K makes4K = Makes4K::Never;
};

/// What a user wants of a service.
struct ImageOrder
{
    QString prompt;
    QString model; ///< An id of the service's models, but anything is sent as it stands.
    bool wants4K = false;
};

/// Everything that the program knows of an image service. A provider is such a value and nothing more, in a file of its
/// own; ServiceProvider does the rest.
struct ImageService
{
    QString id;                 ///< Stable: key file, settings and the provider override use it.
    QString name;               ///< The name that the user reads.
    QString keyTitle;           ///< The name with its maker's, for who enters a key of it.
    QString keyUse;             ///< What a key of it is used for, a sentence for the user.
    bool takesNsfw = false;     ///< Whether the automatic choice falls on it where the user wants NSFW pictures.
    QList<ServiceModel> models; ///< In display order; the first is the default.
    Service address;
    QString path;         ///< %1 is the model, where the address has it.
    QByteArray keyHeader; ///< The header that has the key,
    QByteArray keyPrefix; ///< and what stands before it there.
    std::chrono::seconds silenceLimit{120};
    std::chrono::seconds silenceLimitIn4K{120}; ///< Where the model makes 4K because it was asked to.
    QJsonObject (*body)(const ImageOrder &order, bool in4K) = nullptr; ///< in4K: as for silenceLimitIn4K.
    AnswerFormat answer;

    /// Whether that model makes 4K by itself when it is wanted.
    [[nodiscard]] bool makes4K(const QString &model) const;
};

/// The request that asks service for order.
[[nodiscard]] ServiceRequest requestFor(const ImageService &service, const ImageOrder &order, const QString &apiKey);

/// A service as a provider.
class ServiceProvider : public ImageProvider
{
  public:
    ServiceProvider(ImageService service, HttpClient *http);

    [[nodiscard]] QString name() const override { return m_service.name; }
    [[nodiscard]] QString id() const override { return m_service.id; }
    [[nodiscard]] QString keyTitle() const override { return m_service.keyTitle; }
    [[nodiscard]] QString keyUse() const override { return m_service.keyUse; }
    [[nodiscard]] bool takesNsfw() const override { return m_service.takesNsfw; }
    [[nodiscard]] QList<ModelOption> models() const override;
    [[nodiscard]] QCoro::Task<EncodedImage> generate(QString prompt, QString apiKey, QString model, bool wants4K,
                                                     std::stop_token stop = {}) const override;

  private:
    ImageService m_service;
    HttpClient *m_http;
};

} // namespace quorvane
