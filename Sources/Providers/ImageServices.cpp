#include "Providers/ImageServices.h"

namespace quorvane {

QStringList serviceIds()
{
    QStringList ids;
    for (const ImageService &service : AllProviders::services()) {
        ids.append(service.id);
    }
    return ids;
}

bool makes4K(const QString &providerId, const QString &model)
{
    for (const ImageService &service : AllProviders::services()) {
        if (service.id == providerId) {
            return service.makes4K(model);
        }
    }
    return false;
}

Result<> checkAddress(const QString &providerId)
{
    for (const ImageService &service : AllProviders::services()) {
        if (service.id == providerId) {
            return checkAddress(service.address);
        }
    }
    return kDone;
}

std::vector<std::unique_ptr<const ImageProvider>> allProviders(HttpClient &http)
{
    return AllProviders::make(http);
}

} // namespace quorvane
