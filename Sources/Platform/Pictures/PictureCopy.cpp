#include "Platform/Pictures/PictureCopy.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/Paths.h"
#include "Platform/Files/WholeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <atomic>

using namespace Qt::StringLiterals;

namespace quorvane::PictureCopy {

namespace {

// Followed by the time in UTC and a number.
const QString kNameBegin = u"wallpaper-"_s;

/// Keeps the copies of one instant apart, also from one of them that is gone already: its name has been read.
int nextNumber()
{
    static std::atomic<int> last = 0;
    return ++last;
}

bool isOurName(const QString &name)
{
    static const QRegularExpression ours(
        QRegularExpression::anchoredPattern(kNameBegin + uR"(\d{8}-\d{9}-\d+\.[a-z]+)"_s));
    return ours.match(name).hasMatch();
}

} // namespace

QStringList folders()
{
    QStringList result{Paths::stateHome() + u"/quorvane"_s};
    const QString sessionFolder = QFile::decodeName(qgetenv("XDG_RUNTIME_DIR"));
    if (QDir::isAbsolutePath(sessionFolder)) {
        result.append(QDir::cleanPath(sessionFolder) + u"/quorvane"_s);
    }
    return result;
}

Result<QString> write(const QString &folder, const QByteArray &bytes, const QString &ending)
{
    QDir().mkpath(folder); // Where it cannot be made, writing into it says why.
    const QString begin =
        folder + '/'_L1 + kNameBegin + QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmsszzz"_s);
    while (true) {
        const QString path = u"%1-%2.%3"_s.arg(begin).arg(nextNumber()).arg(ending);
        if (!QFileInfo::exists(path)) {
            const Result<> written = writeFileAtomically(path, bytes);
            return written ? Result<QString>(path) : written.failure();
        }
    }
}

bool isOurs(const QString &path)
{
    const QFileInfo file(path);
    return isOurName(file.fileName()) && folders().contains(file.path());
}

bool isCopyOf(const QString &copy, const QString &path)
{
    if (!isOurs(copy) || QFileInfo(copy).size() != QFileInfo(path).size()) {
        return false;
    }
    const Result<QByteArray> first = readWhole(copy, kLargestPictureBytes);
    const Result<QByteArray> second = readWhole(path, kLargestPictureBytes);
    return first && second && *first == *second;
}

void removeAllBut(const QString &keep)
{
    const QStringList everywhere = folders();
    for (const QString &folder : everywhere) {
        const QStringList names = QDir(folder).entryList(QDir::Files | QDir::NoSymLinks);
        for (const QString &name : names) {
            const QString path = folder + '/'_L1 + name;
            if (path != keep && isOurName(name)) {
                QFile::remove(path);
            }
        }
    }
}

} // namespace quorvane::PictureCopy
