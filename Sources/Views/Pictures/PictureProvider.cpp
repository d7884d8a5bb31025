#include "Views/Pictures/PictureProvider.h"

#include "Views/Pictures/PictureDecoding.h"
#include "Views/Pictures/PictureUrl.h"

#include <QQuickTextureFactory>
#include <QThread>

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>

namespace quorvane {

namespace {

/// What the worker and the response share: either may go first.
struct Order
{
    std::mutex mutex;
    QObject *response = nullptr; ///< Null once the response is gone.
    QImage image;
    std::atomic<bool> isCancelled = false;
};

class PictureResponse final : public QQuickImageResponse
{
  public:
    explicit PictureResponse(std::shared_ptr<Order> order)
        : m_order(std::move(order))
    {
        m_order->response = this;
    }
    ~PictureResponse() override
    {
        const std::lock_guard lock(m_order->mutex);
        m_order->response = nullptr;
    }

    [[nodiscard]] QQuickTextureFactory *textureFactory() const override
    {
        const std::lock_guard lock(m_order->mutex);
        return QQuickTextureFactory::textureFactoryForImage(m_order->image);
    }
    void cancel() override { m_order->isCancelled = true; }

  private:
    std::shared_ptr<Order> m_order;
};

void carryOut(const std::shared_ptr<Order> &order, const std::function<QImage()> &decode)
{
    QImage image = order->isCancelled ? QImage() : decode();
    if (image.isNull()) {
        // An error would go to the log at every look; the tile tells a single pixel from a picture.
        image = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
    }
    const std::lock_guard lock(order->mutex);
    order->image = image;
    if (order->response != nullptr) {
        QMetaObject::invokeMethod(order->response, "finished", Qt::QueuedConnection);
    }
}

} // namespace

PictureProvider::PictureProvider(Kind kind)
    : m_kind(kind)
{
    m_threads.setMaxThreadCount(std::clamp(QThread::idealThreadCount(), 1, 4));
    m_threads.setThreadPriority(QThread::LowPriority);
}

PictureProvider::~PictureProvider()
{
    m_threads.clear();
    m_threads.waitForDone();
}

QQuickImageResponse *PictureProvider::requestImageResponse(const QString &id, const QSize &requestedSize)
{
    auto order = std::make_shared<Order>();
    auto *response = new PictureResponse(order);
    const QString path = pathFromPictureId(id);
    std::function<QImage()> decode;
    if (m_kind == Kind::Thumbnail) {
        decode = [this, path] { return m_cache.thumbnail(path); };
    } else {
        decode = [path, requestedSize] { return decodedWithin(path, requestedSize); };
    }
    m_threads.start([order, decode = std::move(decode)] { carryOut(order, decode); }, ++m_asked);
    return response;
}

} // namespace quorvane
