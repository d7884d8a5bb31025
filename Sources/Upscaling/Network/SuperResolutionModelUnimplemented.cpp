#include "Upscaling/Network/ModelFiles.h"
#include "Upscaling/Network/SuperResolutionModel.h"

// The inference engine was not there when this was built, so no file can be a model.

namespace quorvane {

struct SuperResolutionModel::Engine
{
};

SuperResolutionModel::SuperResolutionModel(const QString &, int)
{
    throw missingModel();
}

SuperResolutionModel::SuperResolutionModel(const QByteArray &, int)
{
    throw missingModel();
}

SuperResolutionModel::SuperResolutionModel(const QString &, int, const QString &)
{
    throw missingModel();
}

SuperResolutionModel::~SuperResolutionModel() = default;

int SuperResolutionModel::reach() const
{
    return 0;
}

std::span<const float> SuperResolutionModel::run(std::span<const float>, const std::stop_token &, QSize)
{
    throw missingModel();
}

QString SuperResolutionModel::description() const
{
    return {};
}

QStringList SuperResolutionModel::cardProviders()
{
    return {};
}

} // namespace quorvane
