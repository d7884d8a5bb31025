#pragma once

#include <QCache>
#include <QImage>
#include <QString>

#include <mutex>
#include <optional>

namespace quorvane {

/// Thumbnails in memory, at most so many bytes of them, and on disk in "quorvane/thumbnails" of the cache folder, where
/// each has a name made of its picture's path, size and modification time. Any thread.
class ThumbnailCache
{
  public:
    /// 440 pixels on the long side.
    static constexpr int kLongSide = 440;
    static constexpr qsizetype kMemoryBytes = qsizetype(48) * 1024 * 1024;

    ThumbnailCache();

    /// The thumbnail of the picture at path, from memory, from disk or made now; null when the picture cannot be read.
    [[nodiscard]] QImage thumbnail(const QString &path);

    /// What the memory holds now, in bytes.
    [[nodiscard]] qsizetype bytesInMemory() const;

    /// The file that holds the thumbnail of the picture as it is now; nothing for a picture that is not there.
    [[nodiscard]] static std::optional<QString> fileFor(const QString &path);

  private:
    void remember(const QString &key, const QImage &image);

    mutable std::mutex m_mutex;
    QCache<QString, QImage> m_memory;
};

} // namespace quorvane
