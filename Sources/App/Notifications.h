#pragma once

#include "App/Notices.h"

#include <QObject>

namespace quorvane {

class SessionBus;

/// Shows notices through org.freedesktop.Notifications, one at a time: a new one takes the place of the last. Never
/// waits; without a daemon nothing happens.
class Notifications : public QObject
{
    Q_OBJECT

  public:
    explicit Notifications(SessionBus &bus, QObject *parent = nullptr);

    void show(const Notice &notice);

  private:
    SessionBus &m_bus;
    quint32 m_last = 0; ///< The daemon's number for the notice that is shown; 0 is none.
};

} // namespace quorvane
