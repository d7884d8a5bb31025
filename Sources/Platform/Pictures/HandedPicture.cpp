#include "Platform/Pictures/HandedPicture.h"

#include "Platform/Files/WholeFile.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/Pictures/PictureFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageWriter>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(HandedPicture)
};

/// Enough to know that a picture decodes to its end.
constexpr QSize kCheckSize(256, 256);

QByteArray encodedAsPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "png");
    writer.setCompression(10); // Fast: the copy lives until the next picture.
    return writer.write(image) ? bytes : QByteArray();
}

Result<HandedPicture> copied(const QByteArray &bytes, const QString &ending, const TakesPath &takesPath)
{
    if (bytes.isEmpty()) {
        return Failure{Tr::tr("The picture cannot be copied for the desktop")};
    }
    const QStringList folders = PictureCopy::folders();
    for (const QString &folder : folders) {
        if (takesPath(folder)) { // Our names add nothing that a desktop could mind.
            if (const Result<QString> copy = PictureCopy::write(folder, bytes, ending)) {
                return HandedPicture{*copy, true};
            }
        }
    }
    return Failure{Tr::tr("No folder could hold a copy of the picture under a name that the desktop takes")};
}

} // namespace

Result<HandedPicture> handedPicture(const QString &path, const TakesPath &takesPath)
{
    const Result<PictureFile> checked = readPicture(path, kCheckSize);
    if (!checked) {
        return checked.failure();
    }
    // Desktops read PNG and JPEG everywhere, other formats only where a plug-in happens to be.
    if (checked->format != "png" && checked->format != "jpeg") {
        const Result<PictureFile> whole = readPicture(path);
        return whole ? copied(encodedAsPng(whole->image), u"png"_s, takesPath) : whole.failure();
    }
    if (takesPath(path)) {
        return HandedPicture{path, false};
    }
    const Result<QByteArray> bytes = readWhole(path, kLargestPictureBytes);
    return copied(bytes ? *bytes : QByteArray(), checked->format == "jpeg" ? u"jpg"_s : u"png"_s, takesPath);
}

Result<HandedPicture> handedPicture(const QImage &image)
{
    return copied(encodedAsPng(image), u"png"_s, [](const QString &) { return true; });
}

} // namespace quorvane
