#include "demo-service/DemoService.h"

#include "Platform/Threads/Mailbox.h"
#include "demo-service/Listener.h"
#include "demo-service/Painter/Painter.h"

#include <QEventLoop>

#include <pthread.h>

using namespace Qt::StringLiterals;

namespace quorvane {

DemoService::DemoService(const DemoServiceOptions &options, QObject *parent)
    : QObject(parent)
{
    m_state.setPictureMaker(paintPicture);
    m_state.setEnlarger([](const QImage &original, QSize size) {
        return original.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    });
    if (!options.address.isLoopback()) {
        m_errorString = u"The demonstration service listens on loopback addresses only."_s;
        return;
    }
    std::promise<void> listening;
    m_thread = std::thread([this, &options, &listening] { serve(options, listening); });
    listening.get_future().wait();
}

DemoService::~DemoService()
{
    if (m_thread.joinable()) {
        m_end();
        m_thread.join();
    }
    // Paintings that still run only give a result that nobody takes.
    m_pool.waitForDone();
}

void DemoService::serve(const DemoServiceOptions &options, std::promise<void> &listening)
{
    pthread_setname_np(pthread_self(), "DemoService"); // Seen in top and debuggers.
    QEventLoop loop;
    Mailbox mailbox;
    m_end = [&] { mailbox.post([&loop] { loop.quit(); }); };
    Listener listener(options.tls, m_state, m_pool); // Sockets die on the thread they live on.
    if (!listener.listen(options.address, options.port)) {
        m_errorString = listener.errorString();
    }
    m_baseAddress.setScheme(options.tls ? u"https"_s : u"http"_s);
    m_baseAddress.setHost(options.address.toString());
    m_baseAddress.setPort(listener.serverPort());
    listening.set_value();
    loop.exec();
}

} // namespace quorvane
