#include "Providers/ImageService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

Makes4K ofModel(const ImageService &service, const QString &model)
{
    const auto known = std::find_if(service.models.begin(), service.models.end(),
                                    [&model](const ServiceModel &each) { return each.option.id == model; });
    return known == service.models.end() ? Makes4K::Never : known->makes4K;
}

} // namespace

bool ImageService::makes4K(const QString &model) const
{
    return ofModel(*this, model) != Makes4K::Never;
}

ServiceRequest requestFor(const ImageService &service, const ImageOrder &order, const QString &apiKey)
{
    const bool in4K = order.wants4K && ofModel(service, order.model) == Makes4K::WhenAsked;
    return {service.address,
            service.path.contains("%1"_L1) ? service.path.arg(order.model) : service.path,
            {service.keyHeader, service.keyPrefix + apiKey.toUtf8()},
            service.body(order, in4K),
            in4K ? service.silenceLimitIn4K : service.silenceLimit};
}

ServiceProvider::ServiceProvider(ImageService service, HttpClient *http)
    : m_service(std::move(service))
    , m_http(http)
{
}

QList<ModelOption> ServiceProvider::models() const
{
    QList<ModelOption> options;
    for (const ServiceModel &model : m_service.models) {
        options.append(model.option);
    }
    return options;
}

QCoro::Task<EncodedImage> ServiceProvider::generate(QString prompt, QString apiKey, QString model, bool wants4K,
                                                    std::stop_token stop) const
{
    const ImageOrder order{prompt, model, wants4K};
    ServiceRequest request = requestFor(m_service, order, apiKey);
    request.stop = std::move(stop);
    return requestImage(m_http, std::move(request), m_service.answer);
}

} // namespace quorvane
