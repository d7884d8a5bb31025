#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

#include <csignal>

#include <sys/mount.h>
#include <sys/resource.h>

namespace quorvane {

/// While the object lives no file can grow beyond bytes: a write fails half-way as it does on a full disk.
class FileSizeLimit
{
  public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        (void)std::signal(SIGXFSZ, m_handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

  private:
    rlimit m_before{};
    void (*m_handlerBefore)(int);
};

/// Mounts a disk of its own at path, as small as options say, when the test may do so.
class SmallDisk
{
  public:
    SmallDisk(const QString &path, const char *options)
        : m_path(QFile::encodeName(path))
        , m_mounted(QDir().mkpath(path) && ::mount("tmpfs", m_path.constData(), "tmpfs", 0, options) == 0)
    {
    }
    ~SmallDisk()
    {
        if (m_mounted) {
            ::umount2(m_path.constData(), MNT_DETACH);
        }
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }

  private:
    QByteArray m_path;
    bool m_mounted;
};

} // namespace quorvane
