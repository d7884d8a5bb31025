#include "demo-service/Connection.h"

#include "Platform/Threads/PoolTask.h"
#include "demo-service/PictureEncoding.h"

#include <QSslSocket>
#include <QTcpSocket>

#include <sys/socket.h>

#include <algorithm>

namespace quorvane {

namespace {

constexpr qsizetype kPortion = qsizetype(256) * 1024;
constexpr qint64 kLargestBacklog = qint64(1024) * 1024;

/// Makes the picture and puts it into an answer; takes seconds, so it runs on the pool.
WireScript pictureScript(const Misbehaviour &misbehaviour, const PictureOrder &order,
                         const ServiceState::PictureMaker &maker, const ServiceState::Enlarger &enlarger)
{
    const QImage image =
        order.original.isNull() ? maker(order.prompt, order.size) : enlarger(order.original, order.size);
    return misbehave(misbehaviour, order, encodePicture(image, order.format()));
}

} // namespace

Connection::Connection(QTcpSocket *socket, ServiceState &state, QThreadPool &pool, QObject *parent)
    : QObject(parent)
    , m_socket(socket)
    , m_state(state)
    , m_pool(pool)
{
    m_socket->setParent(this);
    m_socket->setReadBufferSize(kLargestBacklog);
    m_pause.setSingleShot(true);
    connect(m_socket, &QTcpSocket::disconnected, this, &Connection::deleteLater);
    connect(m_socket, &QTcpSocket::readyRead, this, &Connection::readRequest);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &Connection::playOn);
    connect(&m_pause, &QTimer::timeout, this, &Connection::playOn);
    connect(&m_painting, &QFutureWatcher<void>::finished, this, [this] {
        ThreadHandover::taking(m_painted.get());
        play(*m_painted);
    });

    // What will happen is settled before anybody can see that a connection or request was counted.
    const Misbehaviour::Kind kind = m_state.misbehaviour().kind;
    m_state.countConnection();
    if (kind == Misbehaviour::Kind::ResetOnAccept) {
        reset();
    } else if (kind == Misbehaviour::Kind::SilenceOnAccept) {
        m_answering = true; // Whatever arrives stays unread, and TLS never begins.
    } else if (auto *secure = qobject_cast<QSslSocket *>(m_socket)) {
        connect(secure, &QSslSocket::encryptedBytesWritten, this, &Connection::playOn);
        secure->startServerEncryption();
    }
}

Connection::~Connection()
{
    m_socket->disconnect(this);
}

void Connection::readRequest()
{
    if (m_answering || m_socket->bytesAvailable() == 0) {
        return;
    }
    if (m_state.misbehaviour().kind == Misbehaviour::Kind::ResetDuringRequest) {
        reset();
        return;
    }
    m_reader.feed(m_socket->readAll());
    answerNextRequest();
}

void Connection::answerNextRequest()
{
    if (std::optional<HttpRequest> request = m_reader.next()) {
        m_answering = true;
        request->peer = m_socket->peerAddress();
        m_closesAfterAnswer = request->header("Connection").toLower() == "close";
        const Misbehaviour misbehaviour = m_state.misbehaviour();
        m_state.record(*request);
        answer(*request, misbehaviour);
    } else if (m_reader.refusal().status != 0) {
        m_answering = true;
        m_closesAfterAnswer = true;
        play(m_reader.refusal());
    }
}

void Connection::answer(const HttpRequest &request, const Misbehaviour &misbehaviour)
{
    if (const ServiceState::Responder responder = m_state.responder()) {
        if (const std::optional<WireScript> script = responder(request)) {
            play(*script);
            return;
        }
    }
    if (!needsPicture(misbehaviour.kind)) {
        play(misbehave(misbehaviour, request));
        return;
    }
    const auto read = readOrder(request);
    if (const auto *refusal = std::get_if<HttpAnswer>(&read)) {
        play(*refusal);
        return;
    }
    m_painted = std::make_shared<WireScript>();
    auto paint = [script = m_painted, misbehaviour, order = std::get<PictureOrder>(read),
                  maker = m_state.pictureMaker(), enlarger = m_state.enlarger()] {
        *script = pictureScript(misbehaviour, order, maker, enlarger);
        ThreadHandover::giving(script.get());
    };
    m_painting.setFuture(runOnPool(&m_pool, std::move(paint)));
}

void Connection::play(const WireScript &script)
{
    m_script.assign(script.steps().begin(), script.steps().end());
    playOn();
}

void Connection::playOn()
{
    // Writing can make the socket report written bytes at once, which would come back here.
    if (!m_answering || m_painting.isRunning() || m_playing) {
        return;
    }
    m_playing = true;
    while (!m_script.empty() && std::visit([this](auto &step) { return advance(step); }, m_script.front())) {
        m_script.pop_front();
    }
    m_playing = false;
    if (!m_script.empty() || m_socket->state() != QAbstractSocket::ConnectedState) {
        return;
    }
    if (m_closesAfterAnswer) {
        m_socket->disconnectFromHost();
        return;
    }
    m_answering = false;
    answerNextRequest();
    readRequest();
}

bool Connection::advance(WireScript::Write &step)
{
    while (m_written < step.bytes.size() && unsentBytes() < kLargestBacklog) {
        m_written += m_socket->write(step.bytes.mid(m_written, kPortion));
    }
    return finishWhen(m_written >= step.bytes.size());
}

bool Connection::advance(WireScript::Drip &step)
{
    if (m_pause.isActive()) {
        return false;
    }
    if (m_written < step.bytes.size()) {
        m_written += m_socket->write(step.bytes.mid(m_written, step.portion));
        m_pause.start(step.pause);
        return false;
    }
    return finishWhen(true);
}

bool Connection::advance(WireScript::Repeat &step)
{
    while (unsentBytes() < kLargestBacklog && m_socket->write(step.bytes) > 0) {
    }
    return false;
}

bool Connection::advance(WireScript::Hang & /*step*/)
{
    return false;
}

bool Connection::advance(WireScript::Close & /*step*/)
{
    m_socket->disconnectFromHost();
    return false;
}

bool Connection::advance(WireScript::Reset & /*step*/)
{
    if (unsentBytes() == 0) {
        reset();
    }
    return false;
}

bool Connection::finishWhen(bool finished)
{
    if (finished) {
        m_written = 0;
    }
    return finished;
}

void Connection::reset()
{
    // Closing with a linger time of zero makes the kernel send a reset instead of an orderly end.
    const linger atOnce{1, 0};
    setsockopt(static_cast<int>(m_socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    m_socket->abort();
    deleteLater();
}

qint64 Connection::unsentBytes() const
{
    const auto *secure = qobject_cast<QSslSocket *>(m_socket);
    return m_socket->bytesToWrite() + (secure != nullptr ? secure->encryptedBytesToWrite() : 0);
}

} // namespace quorvane
