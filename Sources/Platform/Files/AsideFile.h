#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/AtomicFile.h"

#include <QByteArray>
#include <QString>

namespace quorvane {

/// A file that was not understood and is about to be replaced, kept under a hidden name beside it:
/// ".prompts.json.unreadable-1" to "-5". With five there already, the last one makes room, because what was lost first
/// is what was worth most.
class AsideFile
{
  public:
    /// Keeps what is at path, with its mode; with FileAccess::OwnerOnly, nobody else may read it from then on. Where
    /// path is a link, what it leads to is kept, beside that. A regular file stays at path, too, until it is replaced,
    /// where the file system has hard links. A Failure holds the system's words; everything is as before then.
    [[nodiscard]] static Result<AsideFile> put(const QString &path, FileAccess access = FileAccess::Default);

    /// Where it lies now.
    [[nodiscard]] QString path() const;

    /// Undoes it, for when nothing could take its place.
    void takeBack() const;

  private:
    enum class Way { WasThere, Linked, Moved };
    AsideFile(QByteArray from, QByteArray to, Way way);

    QByteArray m_from;
    QByteArray m_to;
    Way m_way;
};

/// Writes bytes to path as writeFileAtomically does, after putting aside what is there, and leaves a notice that says
/// so. When it cannot be put aside, it is not replaced. Any thread.
Result<> replaceNotUnderstood(const QString &path, const QByteArray &bytes, FileAccess access = FileAccess::Default);

} // namespace quorvane
