#include "Upscaling/Network/ModelFiles.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/Paths.h"
#include "Platform/Threads/BackgroundThread.h"
#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ModelFiles)
};

const QString kInDataFolder = u"/quorvane/models/RealESRGAN.onnx"_s;

/// The folders that hold what is installed, best first.
QStringList dataFolders()
{
    QString folders = QFile::decodeName(qgetenv("XDG_DATA_DIRS"));
    if (folders.isEmpty()) {
        folders = u"/usr/local/share:/usr/share"_s;
    }
    QStringList result;
    for (const QString &folder : folders.split(':'_L1, Qt::SkipEmptyParts)) {
        if (QDir::isAbsolutePath(folder)) {
            result.append(QDir::cleanPath(folder));
        }
    }
    // A program installed under a prefix of its own has its share folder beside its bin folder.
    result.append(QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share"_s));
    return result;
}

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

QString userModelPath()
{
    return Paths::dataHome() + kInDataFolder;
}

std::optional<QString> findModel()
{
    QStringList candidates{userModelPath()};
    for (const QString &folder : dataFolders()) {
        candidates.append(folder + kInDataFolder);
    }
    for (const QString &candidate : candidates) {
        if (QFileInfo(candidate).isFile()) {
            return candidate;
        }
    }
    return std::nullopt;
}

ProviderError missingModel()
{
    return ProviderError::invalidResponse(Tr::tr("RealESRGAN model not found in app bundle"));
}

QString describeModel(const QString &path)
{
    return SuperResolutionModel(path, 1).description();
}

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
