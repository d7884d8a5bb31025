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

} // namespace

QString describeModel(const QString &path)
{
    return SuperResolutionModel(path, 1).description();
}

void installModel(const QString &file, const std::stop_token &stop)
{
    // Read once: what is copied is what was tried, whatever happens to the file meanwhile.
    const QByteArray content = readModel(file, stop);
    SuperResolutionModel model(content, physicalCores());
    static_cast<void>(tileUpscaleWithModel(sampleTile(), model, {.stop = stop}));

    const QString target = userModelPath();
    (void)QDir().mkpath(QFileInfo(target).path()); // Where that fails, so does the writing.
    if (const Result<> written = writeFileAtomically(target, content); !written) {
        throw ModelError(Tr::tr("The model cannot be copied: %1").arg(written.failure().words).toStdString());
    }
}

} // namespace quorvane
