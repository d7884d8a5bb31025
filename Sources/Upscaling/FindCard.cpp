#include "Upscaling/FindCard.h"

#include "Upscaling/SuperResolutionModel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace quorvane {

std::optional<CardProgram> findCard()
{
    if (!hasGraphicsCard(QStringLiteral("/dev"))) {
        return std::nullopt;
    }
    // Relative to the program, so that a tree that was moved still has it.
    const QString worker =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" QUORVANE_CARD_WORKER));
    QStringList providers = SuperResolutionModel::cardProviders();
    if (providers.isEmpty() || !QFileInfo(worker).isExecutable()) {
        return std::nullopt;
    }
    return CardProgram{worker, std::move(providers)};
}

bool hasGraphicsCard(const QString &devices)
{
    const QFileInfoList nodes =
        QDir(devices + QStringLiteral("/dri")).entryInfoList({QStringLiteral("renderD*")}, QDir::System | QDir::Files) +
        QDir(devices).entryInfoList({QStringLiteral("nvidia[0-9]*")}, QDir::System | QDir::Files);
    return std::any_of(nodes.begin(), nodes.end(),
                       [](const QFileInfo &node) { return node.isReadable() && node.isWritable(); });
}

} // namespace quorvane
