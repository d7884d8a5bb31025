#include "demo-service/DemoService.h"

#include "demo-service/Listener.h"
#include "demo-service/Painter/Painter.h"

namespace quorvane {

DemoService::DemoService(const DemoServiceOptions &options, QObject *parent)
    : QObject(parent)
    , m_listener(new Listener(options.tls, m_state, m_pool))
{
    m_state.setPictureMaker(paintPicture);
    if (!options.address.isLoopback()) {
        m_errorString = QStringLiteral("The demonstration service listens on loopback addresses only.");
        return;
    }
    m_listener->moveToThread(&m_thread);
    m_thread.setObjectName(QStringLiteral("DemoService"));
    m_thread.start();

    quint16 port = 0;
    QMetaObject::invokeMethod(
        m_listener,
        [&] {
            if (m_listener->listen(options.address, options.port)) {
                port = m_listener->serverPort();
            } else {
                m_errorString = m_listener->errorString();
            }
        },
        Qt::BlockingQueuedConnection);
    m_baseAddress.setScheme(options.tls ? QStringLiteral("https") : QStringLiteral("http"));
    m_baseAddress.setHost(options.address.toString());
    m_baseAddress.setPort(port);
}

DemoService::~DemoService()
{
    // Sockets die on the thread they live on; paintings that still run only give a result that nobody takes.
    if (m_thread.isRunning()) {
        connect(&m_thread, &QThread::finished, m_listener, &QObject::deleteLater);
        m_thread.quit();
        m_thread.wait();
    } else {
        delete m_listener;
    }
    m_pool.waitForDone();
}

} // namespace quorvane
