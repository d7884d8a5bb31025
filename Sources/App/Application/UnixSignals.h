#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <memory>

namespace quorvane {

/// Turns SIGTERM, SIGINT and SIGHUP into a signal of the event loop. A second one ends the process as usual, should the
/// first not have done so. One object at a time.
class UnixSignals : public QObject
{
    Q_OBJECT

  public:
    explicit UnixSignals(QObject *parent = nullptr);
    ~UnixSignals() override;

  Q_SIGNALS:
    void endAsked();

  private:
    std::array<int, 2> m_pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace quorvane
