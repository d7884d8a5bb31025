#include "Upscaling/Gpu/FindGpu.h"

#include "Upscaling/Network/SuperResolutionModel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

std::optional<GpuProgram> findGpu()
{
    if (!hasGpu(u"/dev"_s)) {
        return std::nullopt;
    }
    // Relative to the program, so that a tree that was moved still has it.
    const QString worker =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" QUORVANE_GPU_WORKER));
    QStringList providers = SuperResolutionModel::cardProviders();
    if (providers.isEmpty() || !QFileInfo(worker).isExecutable()) {
        return std::nullopt;
    }
    return GpuProgram{worker, std::move(providers)};
}

bool hasGpu(const QString &devices)
{
    const QFileInfoList nodes = QDir(devices + u"/dri"_s).entryInfoList({u"renderD*"_s}, QDir::System | QDir::Files) +
                                QDir(devices).entryInfoList({u"nvidia[0-9]*"_s}, QDir::System | QDir::Files);
    return std::any_of(nodes.begin(), nodes.end(),
                       [](const QFileInfo &node) { return node.isReadable() && node.isWritable(); });
}

} // namespace quorvane
