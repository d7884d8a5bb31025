#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/SystemCall.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>
#include <stop_token>

/// Reading what others may have put where a file of ours, or one that the user named, is expected. Nothing but a
/// regular file is ever opened: a named pipe would wait for its writer, and a device has no end. A Failure holds the
/// system's words. All of it blocks on the disk; any thread.
namespace quorvane {

/// Opens the regular file at path (or the one that a link there leads to) for reading. Nothing where there is none.
[[nodiscard]] Result<std::optional<FileDescriptor>> openRegularFile(const QString &path);

/// The same into file, where there has to be one and it may not be larger than atMostBytes; for readers that take a
/// device.
[[nodiscard]] Result<> openRegularFile(const QString &path, qint64 atMostBytes, QFile *file);

/// The content of the regular file at path; nothing where there is none. More than atMostBytes is a failure, and so is
/// a request to stop.
[[nodiscard]] Result<std::optional<QByteArray>> readWholeIfAny(const QString &path, qint64 atMostBytes,
                                                               const std::stop_token &stop = {});

/// The same where there has to be one.
[[nodiscard]] Result<QByteArray> readWhole(const QString &path, qint64 atMostBytes, const std::stop_token &stop = {});

/// Pictures may be this large on the disk: an uncompressed one of the largest size that is decoded is not larger.
inline constexpr qint64 kLargestPictureBytes = qint64(1024) * 1024 * 1024;

} // namespace quorvane
