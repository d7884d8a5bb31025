#pragma once

#include "Views/Pictures/ThumbnailCache.h"

#include <QLatin1String>
#include <QQuickAsyncImageProvider>
#include <QThreadPool>

#include <atomic>

namespace quorvane {

/// Gives QML the pictures of the library: decoded on threads of its own, the latest asked for first, for that is what
/// the user looks at; one that is no longer wanted is not begun.
class PictureProvider : public QQuickAsyncImageProvider
{
  public:
    enum class Kind {
        Thumbnail, ///< 440 pixels on the long side, cached.
        SizeAsked, ///< Within the size that QML asks for, and never cached here: QML keeps what it shows.
    };

    static constexpr QLatin1String kThumbnails{"thumbnail"};
    static constexpr QLatin1String kPictures{"picture"};

    explicit PictureProvider(Kind kind);
    ~PictureProvider() override;

    QQuickImageResponse *requestImageResponse(const QString &id, const QSize &requestedSize) override;

  private:
    Kind m_kind;
    ThumbnailCache m_cache;
    std::atomic<int> m_asked = 0;
    QThreadPool m_threads; ///< Last, so that its work ends before what it uses goes.
};

} // namespace quorvane
