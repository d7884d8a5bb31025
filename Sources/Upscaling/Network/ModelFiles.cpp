#include "Upscaling/Network/ModelFiles.h"

#include "Platform/Files/Paths.h"
#include "Platform/Files/WholeFile.h"
#include "Upscaling/Image/UpscaleErrors.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ModelFiles)
};

/// The shipped network has a few megabytes, the largest of its kind a hundred.
constexpr qint64 kLargestModelBytes = qint64(1) << 30;
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

QByteArray readModel(const QString &path, const std::stop_token &stop)
{
    Result<QByteArray> content = readWhole(path, kLargestModelBytes, stop);
    if (stop.stop_requested()) {
        throw UpscaleStopped();
    }
    if (!content) {
        throw ModelError(Tr::tr("The model cannot be read: %1").arg(content.failure().words).toStdString());
    }
    return std::move(*content);
}

} // namespace quorvane
