#pragma once

#include "Platform/Files/SystemCall.h"

#include <QString>

namespace quorvane {

/// Keeps every other holder away from a folder's files while one of them is read, changed and written back: other
/// processes and other threads alike, because each holder opens the lock's file anew.
///
/// It is an advisory flock(2) on a file of the folder, ".lock", which only its owner can open, so nobody else can keep
/// us waiting; the file stays, and a killed process lets go at once. It is waited for at most two seconds, and not at
/// all on the thread of the windows; afterwards, and where no such file can be made or locked, the work goes on without
/// it: a change by another process at that very moment may then be lost, but no file is ever half a file.
/// Not recursive.
class FolderLock
{
  public:
    explicit FolderLock(const QString &folder);

    /// Whether the others are kept away.
    [[nodiscard]] bool isHeld() const { return m_descriptor.isOpen(); }

  private:
    FileDescriptor m_descriptor;
};

} // namespace quorvane
