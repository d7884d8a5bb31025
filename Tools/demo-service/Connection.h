#pragma once

#include "demo-service/HttpRequestReader.h"
#include "demo-service/ServiceState.h"
#include "demo-service/WireScript.h"

#include <QFutureWatcher>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <deque>
#include <memory>

class QTcpSocket;

namespace quorvane {

/// One accepted connection: reads requests one after the other and plays the script that answers each. Lives on the
/// service's thread and deletes itself when the peer goes.
class Connection : public QObject
{
    Q_OBJECT

  public:
    /// Takes over socket, which is connected but has not begun TLS.
    Connection(QTcpSocket *socket, ServiceState &state, QThreadPool &pool, QObject *parent);
    ~Connection() override;

  private:
    void readRequest();
    void answerNextRequest();
    void answer(const HttpRequest &request, const Misbehaviour &misbehaviour);
    void play(const WireScript &script);
    void playOn();
    /// Does what can be done of the step now; true when the step is over.
    bool advance(WireScript::Write &step);
    bool advance(WireScript::Drip &step);
    bool advance(WireScript::Repeat &step);
    bool advance(WireScript::Hang &step);
    bool advance(WireScript::Close &step);
    bool advance(WireScript::Reset &step);
    bool finishWhen(bool finished);
    void reset();
    [[nodiscard]] qint64 unsentBytes() const;

    QTcpSocket *m_socket;
    ServiceState &m_state;
    QThreadPool &m_pool;
    HttpRequestReader m_reader;
    std::deque<WireScript::Step> m_script;
    QTimer m_pause;
    std::shared_ptr<WireScript> m_painted; ///< Filled when m_painting ends.
    QFutureWatcher<void> m_painting;
    qsizetype m_written = 0; ///< Of the script's first step.
    bool m_answering = false;
    bool m_playing = false;
    bool m_closesAfterAnswer = false;
};

} // namespace quorvane
