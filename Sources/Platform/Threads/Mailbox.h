#pragma once

#include <QObject>

#include <functional>

namespace quorvane {

/// Calls what other threads post on the thread that it belongs to, in the order of posting; what arrives when it is
/// gone is not called. QMetaObject::invokeMethod() with a function does the same, but out of the thread sanitizer's
/// sight.
class Mailbox : public QObject
{
    Q_OBJECT

  public:
    using QObject::QObject;

    /// From any thread, as long as this lives.
    void post(std::function<void()> call);

  protected:
    bool event(QEvent *event) override;
};

} // namespace quorvane
