#include "Upscaling/GeminiUpscale.h"
#include "Unit/Providers/Answers.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QByteArray mimeTypeSentFor(const QString &extension)
{
    const QByteArray body =
        QJsonDocument(upscaleRequest("Man", extension, u"KEY"_s).body).toJson(QJsonDocument::Compact);
    const qsizetype begin = body.indexOf(R"("mimeType":")") + 12;
    return body.mid(begin, body.indexOf('"', begin) - begin);
}

QByteArray answerWith(const QByteArray &mimeType, const QByteArray &data)
{
    return R"({"candidates":[{"content":{"parts":[{"text":"here"},{"inlineData":{"mimeType":")" + mimeType +
           R"(","data":")" + data + R"("}}]}}]})";
}

} // namespace

TEST(GeminiUpscale, sendsThePictureWithTheInstructionAndAsksForNothingButAPictureIn4K)
{
    const ServiceRequest request = upscaleRequest("Man", u"png"_s, u"KEY"_s);
    EXPECT_EQ(request.path, u"/v1beta/models/gemini-3-pro-image-preview:generateContent"_s);
    EXPECT_EQ(request.keyHeader.name, "x-goog-api-key");
    EXPECT_EQ(request.keyHeader.value, "KEY");
    EXPECT_EQ(request.silenceLimit, std::chrono::seconds(120));
    // The instruction comes before the picture, and the shape is the picture's own.
    EXPECT_EQ(QJsonDocument(request.body).toJson(QJsonDocument::Compact),
              R"({"contents":[{"parts":[{"text":"Upscale this image to 4K resolution while preserving all details. )"
              R"(Do not change the content."},{"inlineData":{"data":"TWFu","mimeType":"image/png"}}]}],)"
              R"("generationConfig":{"imageConfig":{"imageSize":"4K"},"responseModalities":["IMAGE"]}})");
}

TEST(GeminiUpscale, onlyTheExtensionSaysWhatIsSent)
{
    EXPECT_EQ(mimeTypeSentFor(u"png"_s), "image/png");
    for (const QString &extension : {u"jpg"_s, u"jpeg"_s, u"PNG"_s, u"Png"_s, u"webp"_s, QString()}) {
        EXPECT_EQ(mimeTypeSentFor(extension), "image/jpeg") << extension.toStdString();
    }
}

TEST(GeminiUpscale, anEmptyPictureIsSentAsOne)
{
    EXPECT_TRUE(QJsonDocument(upscaleRequest({}, u"png"_s, u"KEY"_s).body).toJson().contains(R"("data": "")"));
}

TEST(GeminiUpscale, aLongPictureIsOneLineOfText)
{
    const QByteArray body = QJsonDocument(upscaleRequest(QByteArray(300, '\xff'), u"jpg"_s, u"KEY"_s).body).toJson();
    EXPECT_TRUE(body.contains('"' + QByteArray(400, '/') + '"'));
}

TEST(GeminiUpscale, answersAreReadThisWay)
{
    const AnswerFormat format = upscaleAnswer();
    // What the answer calls its picture decides, whatever was sent.
    EXPECT_EQ(outcomeOf(answerWith("image/png", "TWFu"), format), u"picture:png:Man"_s);
    EXPECT_EQ(outcomeOf(answerWith("image/jpeg", "TWFu"), format), u"picture:jpg:Man"_s);
    EXPECT_EQ(outcomeOf(answerWith("image/PNG", "TWFu"), format), u"picture:jpg:Man"_s);
    EXPECT_EQ(outcomeOf(answerWith("image/webp", "TWFu"), format), u"picture:jpg:Man"_s);

    const QString noImage = u"Invalid response: No image in upscale response"_s;
    EXPECT_EQ(outcomeOf(answerWith("image/png", "TW Fu"), format), noImage);
    for (const char *answer :
         {"{}", R"({"candidates":[]})", R"({"candidates":[{"content":{"parts":[{"text":"no"}]}}]})",
          R"({"candidates":[{"content":{"parts":[{"inlineData":{"data":"TWFu"}}]}}]})", R"({"error":"text"})",
          R"({"error":{"message":5}})"}) {
        EXPECT_EQ(outcomeOf(answer, format), noImage) << answer;
    }
    for (const char *answer : {"", "[]", "null", "<html>", R"({"candidates")"}) {
        EXPECT_EQ(outcomeOf(answer, format), u"Invalid response: Failed to parse upscale response"_s) << answer;
    }
}

TEST(GeminiUpscale, anErrorOfTheServiceIsAnUpscaleThatFailed)
{
    const AnswerFormat format = upscaleAnswer();
    EXPECT_EQ(outcomeOf(R"({"error":{"message":"too large"}})", format), u"API error: Upscale failed: too large"_s);
    // Also beside a picture.
    QByteArray both = answerWith("image/png", "TWFu");
    both.insert(1, R"("error":{"message":"but"},)");
    EXPECT_EQ(outcomeOf(both, format), u"API error: Upscale failed: but"_s);
}

} // namespace quorvane
