#pragma once

#include <QString>

namespace quorvane {

/// Keeps every other holder away from a folder's files while one of them is read, changed and written back: other
/// processes and other threads alike, because each holder opens the folder anew. Waits for the present holder.
///
/// It is an advisory flock(2) on the folder itself, so no lock file lies about and a killed process lets go at once.
/// Best effort: where the folder cannot be opened or its file system has no locks, nothing is held and nothing said.
/// Not recursive: a second lock on the same folder in the same thread waits for ever.
class FolderLock
{
  public:
    explicit FolderLock(const QString &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    FolderLock(FolderLock &&) = delete;
    FolderLock &operator=(FolderLock &&) = delete;

  private:
    int m_descriptor;
};

} // namespace quorvane
