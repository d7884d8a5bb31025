#include "Providers/GrokProvider.h"
#include "Unit/Providers/Answers.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(GrokProvider, sendsFiveEntriesAndNoSize)
{
    const ServiceRequest request =
        requestFor(GrokProvider::service(), {u"a lake"_s, u"grok-imagine-image"_s, false}, u"KEY"_s);
    EXPECT_EQ(request.path, u"/v1/images/generations"_s);
    EXPECT_EQ(request.keyHeader.name, "Authorization");
    EXPECT_EQ(request.keyHeader.value, "Bearer KEY");
    EXPECT_EQ(request.silenceLimit, std::chrono::seconds(120));
    // "n" is the number 1, not the text.
    EXPECT_EQ(
        QJsonDocument(request.body).toJson(QJsonDocument::Compact),
        R"({"aspect_ratio":"16:9","model":"grok-imagine-image","n":1,"prompt":"a lake","response_format":"b64_json"})");
}

TEST(GrokProvider, answersAreReadThisWay)
{
    const std::vector<AnswerCase> cases{
        {R"({"data":[{"b64_json":"TWFu"}]})", "picture:jpg:Man"},
        // A data address loses its head; the extension stays.
        {R"({"data":[{"b64_json":"data:image/png;base64,TWFu"}]})", "picture:jpg:Man"},
        {R"({"data":[{"b64_json":"base64,TWFu"}]})", "picture:jpg:Man"},
        {R"({"data":[{"b64_json":"base64,TW,Fu"}]})", "Invalid response: Failed to decode base64 image"},
        {R"({"data":[{"b64_json":"data:image/png,TWFu"}]})", "Invalid response: Failed to decode base64 image"},
        {R"({"data":[{"b64_json":"data:image/png;BASE64,TWFu"}]})", "Invalid response: Failed to decode base64 image"},
        {R"({"data":[{"b64_json":"TWFu="}]})", "Invalid response: Failed to decode base64 image"},
        // Only the first entry counts.
        {R"({"data":[{"b64_json":"TWFu"},{"b64_json":"TWFuTWFu"}]})", "picture:jpg:Man"},
        {R"({"data":[{"url":"x"},{"b64_json":"TWFu"}]})", "Invalid response: No image in response"},
        {R"({"data":[]})", "Invalid response: No image in response"},
        {R"({"data":{"b64_json":"TWFu"}})", "Invalid response: No image in response"},
        {R"({"data":[{"b64_json":"TWFu"},"more"]})", "Invalid response: No image in response"},
        {R"({"data":[{"b64_json":null}]})", "Invalid response: No image in response"},
        {R"({})", "Invalid response: No image in response"},
    };
    for (const AnswerCase &each : cases) {
        EXPECT_EQ(outcomeOf(each.answer, GrokProvider::service().answer).toStdString(), each.outcome) << each.answer;
    }
}

TEST(GrokProvider, aLongDataAddressLosesItsHeadToo)
{
    const QByteArray picture(30000, 'p');
    const QByteArray answer = R"({"data":[{"b64_json":"data:image/png;base64,)" + picture.toBase64() + R"("}]})";
    EXPECT_EQ(outcomeOf(answer, GrokProvider::service().answer), u"picture:jpg:"_s + QString::fromLatin1(picture));
}

} // namespace quorvane
