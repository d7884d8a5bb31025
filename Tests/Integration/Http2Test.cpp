// HTTP/2 as services speak it: a real HTTP/2 server in front of the demonstration service.

#include "Platform/Network/HttpClient.h"
#include "Platform/Threads/TaskScope.h"
#include "Support/Desktop/OwnedProgram.h"
#include "Support/TestCertificates.h"
#include "Support/TrustedAuthority.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QFile>
#include <QSslKey>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QCoro::Task<> posting(HttpClient *client, HttpClient::Request request, QString *outcome)
{
    try {
        const QByteArray answer = co_await client->post(std::move(request));
        *outcome = QString::number(answer.size());
    } catch (const TransportError &error) {
        *outcome = error.words();
    }
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

quint16 freePort()
{
    QTcpServer server;
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    return server.serverPort();
}

bool listens(quint16 port)
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    return socket.waitForConnected(200);
}

} // namespace

TEST(Http2, aLargeAnswerComesBackWhole)
{
    if (!firstMissing({u"nghttpx"_s}).isEmpty()) {
        GTEST_SKIP() << "nghttpx is not installed";
    }
    constexpr qsizetype kAnswerBytes = qsizetype{20} * 1024 * 1024;
    DemoService service;
    service.setResponder([](const HttpRequest & /*arrived*/) -> std::optional<WireScript> {
        return HttpAnswer::json(500, "{\"text\":\"" + QByteArray(kAnswerBytes, 'x') + "\"}");
    });
    const QTemporaryDir folder;
    TestCertificates certificates;
    const QSslConfiguration tls = certificates.valid();
    write(folder.filePath(u"key.pem"_s), tls.privateKey().toPem());
    write(folder.filePath(u"certificate.pem"_s), tls.localCertificate().toPem());
    const quint16 port = freePort();
    OwnedProgram proxy(u"nghttpx"_s,
                       {u"--conf=/dev/null"_s, u"--frontend=127.0.0.1,%1"_s.arg(port),
                        u"--backend=127.0.0.1,%1"_s.arg(service.baseAddress().port()), u"--workers=1"_s, u"--no-ocsp"_s,
                        folder.filePath(u"key.pem"_s), folder.filePath(u"certificate.pem"_s)},
                       QProcessEnvironment::systemEnvironment(), folder.path());
    ASSERT_TRUE(waitFor([port] { return listens(port); })) << proxy.errors().constData();

    const TrustedAuthority authority(certificates.authority());
    HttpClient client;
    HttpClient::Request request;
    request.url = QUrl(u"https://127.0.0.1:%1/v1/images/generations"_s.arg(port));
    request.contentType = "application/json";
    request.secret = {"Authorization", "Bearer SECRET"};
    request.body = QByteArray(3 * 1024 * 1024, ' ');
    QString outcome;
    TaskScope scope;
    scope.start(posting(&client, request, &outcome));
    ASSERT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    EXPECT_EQ(outcome, QString::number(kAnswerBytes + 11));
    ASSERT_EQ(service.requests().size(), 1);
    const HttpRequest arrived = service.requests().first();
    // The server in front says which protocol the client spoke.
    EXPECT_TRUE(arrived.header("Via").startsWith("2 ")) << arrived.header("Via").constData();
    EXPECT_EQ(arrived.header("Authorization"), "Bearer SECRET");
    EXPECT_EQ(arrived.body.size(), request.body.size());
}

} // namespace quorvane
