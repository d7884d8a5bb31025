#include "DemoServiceFixture.h"

#include "demo-service/PictureEncoding.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QImage pictureOf(const QJsonValue &base64, const char *format)
{
    return QImage::fromData(QByteArray::fromBase64(base64.toString().toLatin1()), format);
}

QJsonObject geminiParts(const Answer &answer, int part)
{
    return answer.body[u"candidates"_s][0][u"content"_s][u"parts"_s][part].toObject();
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

} // namespace quorvane
