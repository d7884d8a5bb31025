#include "Platform/PictureCopy.h"

#include "Platform/AtomicFile.h"
#include "Platform/Paths.h"
#include "Platform/PictureFile.h"

#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QRegularExpression>

namespace quorvane::PictureCopy {

namespace {

// Followed by the time in UTC and a counter that keeps two copies of one instant apart.
const QString kNameBegin = QStringLiteral("wallpaper-");

bool isCopysName(const QString &name)
{
    static const QRegularExpression ours(
        QRegularExpression::anchoredPattern(kNameBegin + QStringLiteral(R"(\d{8}-\d{9}-\d+\.[a-z]+)")));
    return ours.match(name).hasMatch();
}

QByteArray encodedAsPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "png");
    writer.setCompression(10); // Fast: the copy lives until the next picture.
    return writer.write(image) ? bytes : QByteArray();
}

} // namespace

QStringList folders()
{
    QStringList result{Paths::stateHome() + QStringLiteral("/quorvane")};
    const QString sessionFolder = QFile::decodeName(qgetenv("XDG_RUNTIME_DIR"));
    if (QDir::isAbsolutePath(sessionFolder)) {
        result.append(QDir::cleanPath(sessionFolder) + QStringLiteral("/quorvane"));
    }
    return result;
}

std::optional<QString> write(const QString &folder, const QByteArray &bytes, const QString &ending)
{
    if (!QDir().mkpath(folder)) {
        return std::nullopt;
    }
    const QString begin = folder + QLatin1Char('/') + kNameBegin +
                          QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmsszzz"));
    for (int counter = 0;; ++counter) {
        const QString path = QStringLiteral("%1-%2.%3").arg(begin).arg(counter).arg(ending);
        if (!QFileInfo::exists(path)) {
            return writeFileAtomically(path, bytes) ? std::optional(path) : std::nullopt;
        }
    }
}

std::optional<QString> ofPicture(const QString &path, const QByteArray &format,
                                 const std::function<bool(const QString &)> &accepts)
{
    QByteArray bytes;
    if (format == "png" || format == "jpeg") {
        QFile file(path);
        bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    } else {
        bytes = encodedAsPng(readPicture(path).image);
    }
    const QString ending = format == "jpeg" ? QStringLiteral("jpg") : QStringLiteral("png");
    const QStringList possible = bytes.isEmpty() ? QStringList() : folders();
    for (const QString &folder : possible) {
        if (accepts(folder)) {
            if (std::optional<QString> copy = write(folder, bytes, ending)) {
                return copy;
            }
        }
    }
    return std::nullopt;
}

bool isOurs(const QString &path)
{
    const QFileInfo file(path);
    return isCopysName(file.fileName()) && folders().contains(file.path());
}

void removeAllBut(const QString &keep)
{
    const QStringList everywhere = folders();
    for (const QString &folder : everywhere) {
        const QStringList names = QDir(folder).entryList(QDir::Files | QDir::NoSymLinks);
        for (const QString &name : names) {
            const QString path = folder + QLatin1Char('/') + name;
            if (path != keep && isCopysName(name)) {
                QFile::remove(path);
            }
        }
    }
}

} // namespace quorvane::PictureCopy
