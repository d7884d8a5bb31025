#include "Unit/Upscaling/UpscalingTestSupport.h"

#include "Platform/Pictures/PictureFile.h"
#include "Platform/Threads/TaskScope.h"
#include "Support/WaitFor.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

QImage positions(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = qRgb(x % 256, y % 256, x / 256 * 16 + y / 256);
        }
    }
    return image;
}

QString firstDifference(const QImage &result, const QImage &source)
{
    if (result.size() != source.size() * 4) {
        return u"size %1 x %2"_s.arg(result.width()).arg(result.height());
    }
    const QImage found = result.convertToFormat(QImage::Format_RGB32);
    const QImage wanted = source.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < found.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(found.constScanLine(y));
        const auto *sourceRow = reinterpret_cast<const QRgb *>(wanted.constScanLine(y / 4));
        for (int x = 0; x < found.width(); ++x) {
            if (row[x] != sourceRow[x / 4]) {
                return u"pixel (%1, %2) is %3"_s.arg(x).arg(y).arg(row[x], 8, 16);
            }
        }
    }
    return {};
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    // For PNG this is the speed of deflate, for JPEG the quality.
    writer.setQuality(qstrcmp(format, "png") == 0 ? 90 : 95);
    return writer.write(image) ? bytes : QByteArray();
}

QImage decoded(const QByteArray &bytes)
{
    allowLargePictures();
    return QImage::fromData(bytes);
}

QString modelFile(const char *name)
{
    return QStringLiteral(QUORVANE_TEST_DATA "/models/%1.onnx").arg(QLatin1String(name));
}

HomeWithModel::HomeWithModel(const char *model)
    : m_dataFoldersBefore(qgetenv("XDG_DATA_DIRS"))
{
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path() + u"/usr-share"_s));
    if (model != nullptr) {
        use(model);
    }
}

HomeWithModel::~HomeWithModel()
{
    m_dataFoldersBefore.isNull() ? qunsetenv("XDG_DATA_DIRS") : qputenv("XDG_DATA_DIRS", m_dataFoldersBefore);
}

void HomeWithModel::use(const char *model) const
{
    QDir().mkpath(QFileInfo(userModelPath()).path());
    QFile::remove(userModelPath());
    QFile::copy(modelFile(model), userModelPath());
}

namespace {

QCoro::Task<> run(QByteArray bytes, std::stop_token stop, UpscaleOutcome *outcome,
                  std::function<void()> duringFirstTile)
{
    try {
        std::function<void(UpscaleProgress)> note = [outcome, duringFirstTile](UpscaleProgress progress) {
            outcome->progress.push_back(progress);
            if (progress.tilesDone == 0 && duringFirstTile) {
                duringFirstTile();
            }
        };
        EncodedImage image = co_await localUpscaleImage(std::move(bytes), std::move(stop), std::move(note));
        outcome->png = image.bytes;
        outcome->extension = image.extension;
    } catch (const std::exception &error) {
        outcome->error = QString::fromUtf8(error.what());
    }
}

} // namespace

UpscaleOutcome upscale(const QByteArray &bytes, const std::stop_token &stop,
                       const std::function<void()> &duringFirstTile)
{
    UpscaleOutcome outcome;
    TaskScope scope;
    scope.start(run(bytes, stop, &outcome, duringFirstTile));
    if (!waitFor([&] { return scope.running() == 0; }, std::chrono::minutes(4))) {
        outcome.error = u"the upscale did not end"_s;
    }
    return outcome;
}

QSet<QString> threads()
{
    const QStringList names = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return {names.begin(), names.end()};
}

QSet<QString> childProcesses(qint64 parent)
{
    const QByteArray wanted = QByteArray::number(parent == 0 ? getpid() : parent);
    QSet<QString> children;
    for (const QString &name : QDir(u"/proc"_s).entryList({u"[0-9]*"_s}, QDir::Dirs)) {
        QFile stat(u"/proc/%1/stat"_s.arg(name));
        if (stat.open(QIODevice::ReadOnly)) {
            // The parent is the second word behind the name, which may contain anything and ends with the last bracket.
            const QByteArray line = stat.readAll();
            if (line.mid(line.lastIndexOf(')') + 2).split(' ').value(1) == wanted) {
                children.insert(name);
            }
        }
    }
    return children;
}

bool areGone(const QSet<QString> &some)
{
    return waitFor([&] { return !threads().intersects(some); });
}

} // namespace quorvane
