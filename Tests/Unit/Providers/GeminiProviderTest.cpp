#include "Providers/GeminiProvider.h"
#include "Unit/Providers/Answers.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(GeminiProvider, asksFor4KAt16To9)
{
    const ServiceRequest request =
        requestFor(GeminiProvider::service(), {u"a \"lake\"\n"_s, u"gemini-2.5-flash-image"_s, false}, u"KEY"_s);
    EXPECT_EQ(request.path, u"/v1beta/models/gemini-2.5-flash-image:generateContent"_s);
    EXPECT_EQ(request.keyHeader.name, "x-goog-api-key");
    EXPECT_EQ(request.keyHeader.value, "KEY");
    EXPECT_EQ(request.silenceLimit, std::chrono::seconds(120));
    EXPECT_EQ(QJsonDocument(request.body).toJson(QJsonDocument::Compact),
              R"({"contents":[{"parts":[{"text":"a \"lake\"\n"}]}],"generationConfig":)"
              R"({"imageConfig":{"aspectRatio":"16:9","imageSize":"4K"},"responseModalities":["IMAGE"]}})");
}

TEST(GeminiProvider, theModelStandsInTheAddressAsItIs)
{
    EXPECT_EQ(requestFor(GeminiProvider::service(), {QString(), u"a b%"_s, false}, QString()).path,
              u"/v1beta/models/a b%:generateContent"_s);
}

TEST(GeminiProvider, answersAreReadThisWay)
{
    const std::vector<AnswerCase> cases{
        // A text part before the picture is skipped.
        {R"({"candidates":[{"content":{"parts":[{"text":"here"},{"inlineData":{"mimeType":"image/png","data":"TWFu"}}]}}]})",
         "picture:png:Man"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/jpeg","data":"TWFu"}}]}}]})",
         "picture:jpg:Man"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/PNG","data":"TWFu"}}]}}]})",
         "picture:jpg:Man"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"x-png-y","data":"TWFu"}}]}}]})",
         "picture:png:Man"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"","data":""}}]}}]})", "picture:jpg:"},
        // Only the first candidate is looked at.
        {R"({"candidates":[{"content":{"parts":[{"text":"no"}]}},)"
         R"({"content":{"parts":[{"inlineData":{"mimeType":"image/png","data":"TWFu"}}]}}]})",
         "Invalid response: No image in response"},
        // Only the first part with inlineData is looked at.
        {R"({"candidates":[{"content":{"parts":[{"inlineData":5},{"inlineData":{"mimeType":"image/png","data":"TWFu"}}]}}]})",
         "Invalid response: No image in response"},
        // Each step of the way must have its type.
        {R"({})", "Invalid response: No image in response"},
        {R"({"candidates":[]})", "Invalid response: No image in response"},
        {R"({"candidates":{}})", "Invalid response: No image in response"},
        {R"({"candidates":[5]})", "Invalid response: No image in response"},
        {R"({"candidates":[{"content":[]}]})", "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{}}]})", "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":{}}}]})", "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[]}}]})", "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/png"}}]}}]})",
         "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"data":"TWFu"}}]}}]})",
         "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":5,"data":"TWFu"}}]}}]})",
         "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/png","data":5}}]}}]})",
         "Invalid response: No image in response"},
        // A list with anything but objects in it is no list of objects, even behind the part that is wanted.
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/png","data":"TWFu"}}]}},5]})",
         "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/png","data":"TWFu"}},null]}}]})",
         "Invalid response: No image in response"},
        // Undecodable pictures have no message of their own.
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/png","data":"TW Fu"}}]}}]})",
         "Invalid response: No image in response"},
        {R"({"candidates":[{"content":{"parts":[{"inlineData":{"mimeType":"image/png","data":"data:;base64,TWFu"}}]}}]})",
         "Invalid response: No image in response"},
        // A blocked prompt.
        {R"({"promptFeedback":{"blockReason":"SAFETY"}})", "Invalid response: No image in response"},
    };
    for (const AnswerCase &each : cases) {
        EXPECT_EQ(outcomeOf(each.answer, GeminiProvider::service().answer).toStdString(), each.outcome) << each.answer;
    }
}

TEST(GeminiProvider, aMimeTypeOfAnyLengthSaysWhatThePictureIs)
{
    for (const qsizetype bytes : {10, 4096, 4097, 100000}) {
        const QByteArray front = R"({"candidates":[{"content":{"parts":[{"inlineData":{"data":"TWFu","mimeType":")";
        const QByteArray back = R"("}}]}}]})";
        const QByteArray filling(bytes, 'x');
        EXPECT_EQ(outcomeOf(front + filling + "png" + back, GeminiProvider::service().answer), u"picture:png:Man"_s)
            << bytes;
        EXPECT_EQ(outcomeOf(front + filling + "\\u0070ng" + back, GeminiProvider::service().answer),
                  u"picture:png:Man"_s)
            << bytes;
        EXPECT_EQ(outcomeOf(front + filling + "gnp" + back, GeminiProvider::service().answer), u"picture:jpg:Man"_s)
            << bytes;
    }
}

} // namespace quorvane
