#include "Upscaling/ModelInstall.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Threads/BackgroundThread.h"
#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/ModelFiles.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ModelInstall)
};

/// A tile with a likeness to check: every corner has another colour.
QImage sampleTile()
{
    constexpr int kEdge = TileGrid::kTileEdge;
    QImage image(kEdge, kEdge, QImage::Format_RGBX8888);
    for (int y = 0; y < kEdge; ++y) {
        for (int x = 0; x < kEdge; ++x) {
            image.setPixel(x, y, qRgb(x / 2, y / 2, 255 - x / 2));
        }
    }
    return image;
}

[[noreturn]] void failToCopy(const QString &reason)
{
    throw ModelError(Tr::tr("The model cannot be copied: %1").arg(reason).toStdString());
}

} // namespace

void installModel(const QString &file, const std::stop_token &stop)
{
    SuperResolutionModel model(file, physicalCores());
    static_cast<void>(tileUpscaleWithModel(sampleTile(), model, {.stop = stop}));

    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        failToCopy(source.errorString());
    }
    const QByteArray content = source.readAll();
    const QString target = userModelPath();
    if (content.size() != source.size() || !QDir().mkpath(QFileInfo(target).path()) ||
        !writeFileAtomically(target, content)) {
        failToCopy(Tr::tr("writing %1 failed").arg(target));
    }
}

} // namespace quorvane
