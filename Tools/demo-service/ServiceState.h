#pragma once

#include "demo-service/HttpMessage.h"
#include "demo-service/Misbehaviour.h"
#include "demo-service/WireScript.h"

#include <QImage>

#include <functional>
#include <mutex>
#include <optional>

namespace quorvane {

/// What the service's owner sets and reads while the service's own thread serves. Every member may be called from any
/// thread.
class ServiceState
{
  public:
    using Responder = std::function<std::optional<WireScript>(const HttpRequest &)>;
    using PictureMaker = std::function<QImage(const QString &prompt, QSize size)>;
    using Enlarger = std::function<QImage(const QImage &original, QSize size)>;

    void setMisbehaviour(const Misbehaviour &misbehaviour) { set(m_misbehaviour, misbehaviour); }
    [[nodiscard]] Misbehaviour misbehaviour() const { return get(m_misbehaviour); }

    void setResponder(const Responder &responder) { set(m_responder, responder); }
    [[nodiscard]] Responder responder() const { return get(m_responder); }

    void setPictureMaker(const PictureMaker &maker) { set(m_pictureMaker, maker); }
    [[nodiscard]] PictureMaker pictureMaker() const { return get(m_pictureMaker); }

    void setEnlarger(const Enlarger &enlarger) { set(m_enlarger, enlarger); }
    [[nodiscard]] Enlarger enlarger() const { return get(m_enlarger); }

    void record(const HttpRequest &request)
    {
        const std::lock_guard lock(m_mutex);
        m_requests += request;
    }
    [[nodiscard]] QList<HttpRequest> requests() const { return get(m_requests); }
    void clearRequests() { set(m_requests, {}); }

    void countConnection()
    {
        const std::lock_guard lock(m_mutex);
        ++m_connections;
    }
    [[nodiscard]] int connections() const { return get(m_connections); }

  private:
    template <typename Value> void set(Value &member, const Value &value)
    {
        const std::lock_guard lock(m_mutex);
        member = value;
    }
    template <typename Value> [[nodiscard]] Value get(const Value &member) const
    {
        const std::lock_guard lock(m_mutex);
        return member;
    }

    mutable std::mutex m_mutex;
    Misbehaviour m_misbehaviour;
    Responder m_responder;
    PictureMaker m_pictureMaker;
    Enlarger m_enlarger;
    QList<HttpRequest> m_requests;
    int m_connections = 0;
};

} // namespace quorvane
