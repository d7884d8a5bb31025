#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/SystemCall.h"
#include "Storage/Cascade.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace quorvane {

/// Pictures that were deleted and can still be brought back. To everything else they are gone: no file, no entry. They
/// lie in a hidden folder of the library, ".deleted.XXXXXX", so that nothing is copied and no other disk is needed; a
/// lock on that folder tells that somebody still may want them. They go for good with the Deletion.
///
/// A wastebasket of the desktop is not used: it would keep what the user wants to be gone, and gives nothing back by
/// itself. One thread at a time; every call goes to the disk.
class Deletion
{
  public:
    /// What came of it. There is no deletion to take back where it could only be done for good.
    struct Outcome
    {
        std::unique_ptr<Deletion> deletion;
        Result<> result = kDone;
    };

    /// Deletes each of images as ImageStore::deleteImage() does, but so that it can be taken back. Where no folder can
    /// be made, or the side files cannot be written before there is room again, it is for good.
    [[nodiscard]] static Outcome of(const QStringList &images);

    ~Deletion(); ///< For good.
    Deletion(const Deletion &) = delete;
    Deletion &operator=(const Deletion &) = delete;
    Deletion(Deletion &&) = delete;
    Deletion &operator=(Deletion &&) = delete;

    /// Brings files and entries back as they were. Everything is tried; the first thing that could not be done is the
    /// Failure, and it can be tried again. What has taken the name of a picture in the meantime stays, and is one.
    Result<> undo();

    /// Removes for good what ended programs left: what nobody holds any more. Once per launch is enough.
    static void removeAbandoned();

  private:
    struct Moved
    {
        QString path;  ///< Where it was, and belongs.
        QString aside; ///< Where it is.
    };

    explicit Deletion(QString folder);
    /// Nothing when it has to be for good.
    [[nodiscard]] static std::optional<Outcome> revocably(const QStringList &images);
    [[nodiscard]] Result<> moveAside(const QStringList &paths);

    QString m_folder;
    FileDescriptor m_lock; ///< The folder itself, locked.
    std::vector<Moved> m_moved;
    PictureEntries m_entries;
};

} // namespace quorvane
