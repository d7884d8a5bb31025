#include "Platform/Files/FolderLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quorvane {

FolderLock::FolderLock(const QString &folder)
    : m_descriptor(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_descriptor >= 0) {
        while (::flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

} // namespace quorvane
