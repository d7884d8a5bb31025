#include "Platform/Pictures/PictureFile.h"

#include <QCoreApplication>
#include <QImageReader>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(PictureFile)
};

/// Qt refuses pictures above 256 MiB unless told otherwise; enlarged ones reach twice that.
constexpr int kMemoryLimitMebibytes = 1024;

void raiseMemoryLimit()
{
    // The limit belongs to the whole process, so it is written once and not by every thread that reads.
    [[maybe_unused]] static const bool raised = [] {
        QImageReader::setAllocationLimit(kMemoryLimitMebibytes);
        return true;
    }();
}

} // namespace

PictureFile readPicture(const QString &path, QSize atMost)
{
    raiseMemoryLimit();
    QImageReader reader(path);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    PictureFile file;
    file.format = reader.format();
    const QSize size = reader.size();
    if (atMost.isValid() && (size.width() > atMost.width() || size.height() > atMost.height())) {
        reader.setScaledSize(size.scaled(atMost, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    if (!reader.read(&file.image)) {
        file.image = {};
        file.error = Tr::tr("The picture cannot be read: %1").arg(reader.errorString());
    }
    return file;
}

} // namespace quorvane
