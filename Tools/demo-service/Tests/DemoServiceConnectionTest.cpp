#include "DemoServiceFixture.h"

#include "Support/TestCertificates.h"
#include "Support/WaitFor.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What a careful client makes of a service under that certificate, asked by that name.
QNetworkReply::NetworkError errorOverTls(TestCertificates &certificates, const QSslConfiguration &tls,
                                         const QString &host = u"127.0.0.1"_s)
{
    DemoServiceOptions options;
    options.tls = tls;
    DemoService service(options);
    service.setPictureMaker(plainPicture);
    QUrl address = service.baseAddress();
    address.setHost(host);
    address.setPath(u"/v1/images/generations"_s);
    QNetworkRequest request(address);
    QSslConfiguration trust = QSslConfiguration::defaultConfiguration();
    trust.setCaCertificates({certificates.authority()});
    request.setSslConfiguration(trust);
    request.setRawHeader("Authorization", "Bearer key");
    request.setRawHeader("Content-Type", "application/json");
    QNetworkAccessManager manager;
    const std::unique_ptr<QNetworkReply> reply(manager.post(request, bodyOf(openAIRequest())));
    EXPECT_TRUE(waitFor([&] { return reply->isFinished(); }));
    if (reply->error() == QNetworkReply::NoError) {
        EXPECT_TRUE(QJsonDocument::fromJson(reply->readAll()).object().contains(u"data"_s));
    }
    return reply->error();
}

} // namespace

TEST(DemoService, aConnectionServesOneRequestAfterAnother)
{
    const DemoService service;
    RawClient client(service.baseAddress());
    client.send("GET /1 HTTP/1.1\r\nHost: a\r\n\r\nGET /2 HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(client.receiveAll().count("HTTP/1.1 404"), 2);
    EXPECT_EQ(client.end(), RawClient::End::Closed);
    EXPECT_EQ(service.connections(), 1);
}

TEST(DemoService, everyRequestIsRecordedAsItCame)
{
    DemoService service;
    service.setPictureMaker(plainPicture);
    ask(service, grokRequest());
    const QList<HttpRequest> requests = service.requests();
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].method, "POST");
    EXPECT_EQ(requests[0].path, "/v1/images/generations");
    EXPECT_EQ(requests[0].header("authorization"), "Bearer key");
    EXPECT_EQ(requests[0].body, bodyOf(grokRequest()));
    EXPECT_TRUE(requests[0].peer.isLoopback());
    service.clearRequests();
    EXPECT_TRUE(service.requests().isEmpty());
}

TEST(DemoService, aRequestOfManyMegabytesArrivesWhole)
{
    const DemoService service;
    const QByteArray body(40'000'000, ' ');
    EXPECT_EQ(refusalStatus(service, postRequest("/v1/images/generations", "Authorization: Bearer key", body)), 400);
    EXPECT_EQ(service.requests().constFirst().body, body);
}

TEST(DemoService, onlyLoopbackAddressesAreListenedOn)
{
    DemoServiceOptions options;
    options.address = QHostAddress::Any;
    EXPECT_FALSE(DemoService(options).errorString().isEmpty());
    EXPECT_TRUE(DemoService().errorString().isEmpty());
}

TEST(DemoService, aTakenPortIsReported)
{
    const DemoService first;
    DemoServiceOptions options;
    options.port = static_cast<quint16>(first.baseAddress().port());
    EXPECT_FALSE(DemoService(options).errorString().isEmpty());
}

TEST(DemoService, speaksIPv6)
{
    DemoServiceOptions options;
    options.address = QHostAddress::LocalHostIPv6;
    const DemoService service(options);
    EXPECT_TRUE(service.errorString().isEmpty()) << service.errorString().toStdString();
    QTcpSocket socket;
    socket.connectToHost(service.baseAddress().host(), static_cast<quint16>(service.baseAddress().port()));
    ASSERT_TRUE(socket.waitForConnected());
    socket.write("GET / HTTP/1.1\r\nHost: a\r\n\r\n");
    ASSERT_TRUE(socket.waitForReadyRead());
    EXPECT_TRUE(socket.readAll().startsWith("HTTP/1.1 404"));
}

TEST(DemoService, overTlsEachCertificateGetsTheJudgementItDeserves)
{
    TestCertificates certificates;
    const QNetworkReply::NetworkError refused = QNetworkReply::SslHandshakeFailedError;
    EXPECT_EQ(errorOverTls(certificates, certificates.valid()), QNetworkReply::NoError);
    EXPECT_EQ(errorOverTls(certificates, certificates.valid(), u"localhost"_s), QNetworkReply::NoError);
    EXPECT_EQ(errorOverTls(certificates, certificates.expired()), refused);
    EXPECT_EQ(errorOverTls(certificates, certificates.wrongHost()), refused);
    EXPECT_EQ(errorOverTls(certificates, certificates.unknownAuthority()), refused);
}

TEST(DemoService, goesAwayWhileConnectionsAreBusy)
{
    auto service = std::make_unique<DemoService>();
    service->setMisbehaviour(Misbehaviour::Kind::EndlessBody);
    RawClient client(service->baseAddress());
    client.send(geminiRequest());
    EXPECT_GT(client.receive(100000).size(), 100000 - 1);
    service.reset();
    client.receiveAll();
    EXPECT_NE(client.end(), RawClient::End::Open);
}

} // namespace quorvane
