#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <unistd.h>

namespace quorvane {

/// The whole content of the file at path; a null array when it cannot be read.
[[nodiscard]] inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Puts content at path, in a folder that is made when it is not there.
[[nodiscard]] inline bool putFile(const QString &path, const QByteArray &content = "x")
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(content) == content.size();
}

/// While the object lives the process has no more rights than an ordinary user, so that a test of permissions means the
/// same when it is run by root. What it works on must belong to that user: see giveAway().
class AsOrdinaryUser
{
  public:
    AsOrdinaryUser()
        : m_before(::geteuid())
    {
        if (m_before == 0) {
            (void)::seteuid(kNobody);
        }
    }
    ~AsOrdinaryUser() { (void)::seteuid(m_before); }
    AsOrdinaryUser(const AsOrdinaryUser &) = delete;
    AsOrdinaryUser &operator=(const AsOrdinaryUser &) = delete;

    /// Makes the entry at path the ordinary user's own. Does nothing where the test runs as one already.
    static void giveAway(const QString &path)
    {
        if (::geteuid() == 0) {
            (void)!::chown(QFile::encodeName(path).constData(), kNobody, kNobody);
        }
    }

  private:
    static constexpr uid_t kNobody = 65534;
    uid_t m_before;
};

} // namespace quorvane
