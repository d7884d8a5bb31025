#pragma once

#include "App/Tray/Notices.h"
#include "Platform/Threads/TaskScope.h"

#include <QImage>
#include <QObject>

namespace quorvane {

class SessionBus;

/// Shows notices through org.freedesktop.Notifications, one at a time: a new one takes the place of the last. A picture
/// goes along as a small one, so that no daemon has to decode a large file. Never waits; without a daemon nothing
/// happens.
class Notifications : public QObject
{
    Q_OBJECT

  public:
    explicit Notifications(SessionBus &bus, QObject *parent = nullptr);

    void show(const Notice &notice);

  private:
    [[nodiscard]] QCoro::Task<> showing(Notice notice, quint64 number);
    void send(const Notice &notice, const QImage &thumbnail);
    void deliver(const Notice &notice, const QString &text, const QImage &thumbnail);

    SessionBus &m_bus;
    quint64 m_asked = 0; ///< How many notices were asked for.
    quint32 m_last = 0;  ///< The daemon's number for the notice that is shown; 0 is none.
    TaskScope m_scope;
};

} // namespace quorvane
