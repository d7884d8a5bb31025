#include "Platform/Pictures/PictureHandover.h"

#include "Platform/Pictures/PictureCopy.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <sys/stat.h>

namespace quorvane {

namespace {

/// Every replaced file is another one, and a rewritten one has another time.
QByteArray contentMark(const QString &path)
{
    struct stat state
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &state) != 0) {
        return {};
    }
    QByteArray mark;
    for (const auto number : {qint64(state.st_dev), qint64(state.st_ino), qint64(state.st_size),
                              qint64(state.st_mtim.tv_sec), qint64(state.st_mtim.tv_nsec)}) {
        mark += QByteArray::number(number) + ' ';
    }
    return mark;
}

} // namespace

Result<HandedPicture> PictureHandover::handOver(const QString &path, const Rules &rules)
{
    const QByteArray content = contentMark(path);
    const bool isShown = m_shown.path == path && m_shown.content == content && !content.isEmpty();
    if (isShown && QFileInfo::exists(m_shown.handedPath)) {
        return HandedPicture{m_shown.handedPath, m_shown.handedPath != path};
    }
    // A loaded copy may be one of this very path, made by a process that is gone, under which the path was read before.
    const bool mayBeKnown =
        m_shown.path == path || std::any_of(rules.loaded.begin(), rules.loaded.end(), [&](const QString &loaded) {
            return loaded == path || (m_shown.handedPath.isEmpty() && PictureCopy::isOurs(loaded));
        });
    return handedPicture(
        path, [&](const QString &taken) { return !(mayBeKnown && taken == path) && rules.takesPath(taken); });
}

void PictureHandover::succeeded(const QString &path, const HandedPicture &handed)
{
    m_shown = {path, contentMark(path), handed.path};
}

void PictureHandover::failed(const HandedPicture &handed) const
{
    if (handed.isCopy && handed.path != m_shown.handedPath) {
        QFile::remove(handed.path);
    }
}

} // namespace quorvane
