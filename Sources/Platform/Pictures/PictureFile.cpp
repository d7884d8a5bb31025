#include "Platform/Pictures/PictureFile.h"

#include "Platform/Files/WholeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(PictureFile)
};

} // namespace

void allowLargePictures()
{
    [[maybe_unused]] static const bool isAllowed = [] {
        QImageReader::setAllocationLimit(kLargestDecodedMebibytes);
        return true;
    }();
}

Result<PictureFile> readPicture(const QString &path, QSize atMost)
{
    allowLargePictures();
    QFile content;
    if (const Result<> opened = openRegularFile(path, kLargestPictureBytes, &content); !opened) {
        return Failure{Tr::tr("The picture cannot be read: %1").arg(opened.failure().words)};
    }
    PictureFile file;
    QImageReader reader(&content);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    file.format = reader.format();
    const QSize size = reader.size();
    if (atMost.isValid() && (size.width() > atMost.width() || size.height() > atMost.height())) {
        reader.setScaledSize(size.scaled(atMost, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    if (!reader.read(&file.image)) {
        return Failure{Tr::tr("The picture cannot be read: %1").arg(reader.errorString())};
    }
    return file;
}

} // namespace quorvane
