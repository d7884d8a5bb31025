#include "demo-service/DemoService.h"
#include "RawClient.h"
#include "Support/TestCertificates.h"
#include "Support/WaitFor.h"
#include "demo-service/PictureEncoding.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QImage plainPicture(const QString & /*prompt*/, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}

struct Answer
{
    int status = 0;
    QJsonObject body;
};

Answer ask(const DemoService &service, const QByteArray &request)
{
    RawClient client(service.baseAddress());
    client.send(request);
    const QByteArray answer = client.receiveAnswer();
    return {answer.mid(9, 3).toInt(), QJsonDocument::fromJson(bodyOf(answer)).object()};
}

QImage pictureOf(const QJsonValue &base64, const char *format)
{
    return QImage::fromData(QByteArray::fromBase64(base64.toString().toLatin1()), format);
}

QJsonObject geminiParts(const Answer &answer, int part)
{
    return answer.body[u"candidates"_s][0][u"content"_s][u"parts"_s][part].toObject();
}

int refusalStatus(const DemoService &service, const QByteArray &request)
{
    const Answer answer = ask(service, request);
    const QJsonObject error = answer.body.value(u"error"_s).toObject();
    EXPECT_FALSE(error.value(u"message"_s).toString().isEmpty());
    EXPECT_EQ(error.value(u"code"_s).toInt(), answer.status);
    return answer.status;
}

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

TEST(DemoService, geminiAnswersATextPartAndThenA4KPng)
{
    DemoService service;
    service.setPictureMaker(plainPicture);
    const Answer answer = ask(service, geminiRequest());
    EXPECT_EQ(answer.status, 200);
    EXPECT_TRUE(geminiParts(answer, 0).contains(u"text"_s));
    const QJsonObject inlineData = geminiParts(answer, 1).value(u"inlineData"_s).toObject();
    EXPECT_EQ(inlineData.value(u"mimeType"_s).toString(), u"image/png"_s);
    EXPECT_EQ(pictureOf(inlineData.value(u"data"_s), "png").size(), QSize(3840, 2160));
}

TEST(DemoService, aGeminiRequestWithAPictureGetsItEnlargedTo3840)
{
    DemoService service;
    const QByteArray original = encodePicture(plainPicture(QString(), QSize(120, 80)), "png").toBase64();
    const Answer answer =
        ask(service, postRequest("/v1beta/models/gemini-3-pro-image-preview:generateContent", "x-goog-api-key: key",
                                 R"({"contents":[{"parts":[{"text":"Enlarge"},{"inlineData":{"mimeType":"image/png",)"
                                 R"("data":")" +
                                     original + R"("}}]}],"generationConfig":{"imageConfig":{"imageSize":"4K"}}})"));
    EXPECT_EQ(answer.status, 200);
    const QJsonObject inlineData = geminiParts(answer, 1).value(u"inlineData"_s).toObject();
    const QImage enlarged = pictureOf(inlineData.value(u"data"_s), "png");
    EXPECT_EQ(enlarged.size(), QSize(3840, 2560));
    EXPECT_EQ(enlarged.pixelColor(1000, 1000), QColor(Qt::darkCyan));
}

TEST(DemoService, grokAnswersAJpeg)
{
    DemoService service;
    service.setPictureMaker(plainPicture);
    const Answer answer = ask(service, grokRequest());
    EXPECT_EQ(answer.status, 200);
    const QJsonValue base64 = answer.body[u"data"_s][0][u"b64_json"_s];
    EXPECT_EQ(pictureOf(base64, "jpg").size(), QSize(1408, 768));
}

TEST(DemoService, openAIAnswersAPngOfTheSizeAskedFor)
{
    DemoService service;
    service.setPictureMaker(plainPicture);
    for (const QSize size : {QSize(1536, 1024), QSize(3840, 2160)}) {
        QByteArray body = bodyOf(openAIRequest());
        body.replace("1536x1024", QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height()));
        const Answer answer = ask(service, postRequest("/v1/images/generations", "Authorization: Bearer key", body));
        EXPECT_EQ(answer.status, 200);
        EXPECT_EQ(pictureOf(answer.body[u"data"_s][0][u"b64_json"_s], "png").size(), size);
    }
}

TEST(DemoService, whatTheServicesWouldRefuseIsRefused)
{
    const DemoService service;
    const QByteArray gemini = geminiRequest();
    const QByteArray openAI = openAIRequest();
    const auto changed = [](QByteArray request, const char *before, const char *after) {
        EXPECT_TRUE(request.contains(before));
        EXPECT_EQ(qstrlen(before), qstrlen(after)) << "the length of the body is already written";
        return request.replace(before, after);
    };
    EXPECT_EQ(refusalStatus(service, changed(gemini, "/v1beta/", "/v1alfa/")), 404);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "POST", "HEAD")), 405);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "application/json", "application/jsom")), 415);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "x-goog-api-key: key", "x-goog-api-kex: key")), 401);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "\"text\"", "\"test\"")), 400);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "\"contents\"", "\"kontents\"")), 400);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "\"4K\"", "\"9K\"")), 400);
    EXPECT_EQ(refusalStatus(service, changed(gemini, "}}}", "}}]")), 400);
    EXPECT_EQ(refusalStatus(service, changed(openAI, "Bearer key", "Bearerrkey")), 401);
    EXPECT_EQ(refusalStatus(service, changed(openAI, "\"prompt\"", "\"promqt\"")), 400);
    EXPECT_EQ(refusalStatus(service, changed(openAI, "1536x1024", "153600024")), 400);
    EXPECT_EQ(refusalStatus(service, changed(grokRequest(), "\"n\":1", "\"n\":2")), 400);
    EXPECT_EQ(refusalStatus(service, changed(grokRequest(), "\"16:9\"", "\"99:9\"")), 400);
}

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

TEST(DemoService, aResponderComesFirstAndMayDecline)
{
    DemoService service;
    service.setResponder([](const HttpRequest &request) {
        return request.path == "/own" ? std::optional(WireScript().write("anything").close()) : std::nullopt;
    });
    RawClient client(service.baseAddress());
    client.send("GET /own HTTP/1.1\r\nHost: a\r\n\r\n");
    EXPECT_EQ(client.receiveAll(), "anything");
    EXPECT_EQ(refusalStatus(service, "GET /other HTTP/1.1\r\nHost: a\r\n\r\n"), 404);
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
