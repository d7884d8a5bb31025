#include "Providers/OpenAIProvider.h"
#include "Unit/Providers/Answers.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QByteArray bodyFor(const char *model, bool wants4K)
{
    const ServiceRequest request =
        requestFor(OpenAIProvider::service(), {u"p"_s, QLatin1String(model), wants4K}, u"KEY"_s);
    return QJsonDocument(request.body).toJson(QJsonDocument::Compact);
}

std::chrono::seconds silenceLimitFor(const char *model, bool wants4K)
{
    return requestFor(OpenAIProvider::service(), {QString(), QLatin1String(model), wants4K}, QString()).silenceLimit;
}

} // namespace

TEST(OpenAIProvider, theNewestModelPaints4KItselfAndTakesTenMinutesForIt)
{
    EXPECT_EQ(bodyFor("gpt-image-2", true),
              R"({"model":"gpt-image-2","output_format":"png","prompt":"p","quality":"high","size":"3840x2160"})");
    EXPECT_EQ(silenceLimitFor("gpt-image-2", true), std::chrono::seconds(600));
}

TEST(OpenAIProvider, without4KItPaintsTheUsualSize)
{
    EXPECT_EQ(bodyFor("gpt-image-2", false),
              R"({"model":"gpt-image-2","output_format":"png","prompt":"p","quality":"high","size":"1536x1024"})");
    EXPECT_EQ(silenceLimitFor("gpt-image-2", false), std::chrono::seconds(180));
}

TEST(OpenAIProvider, olderModelsAreSentTwoMoreEntriesAndNever4K)
{
    for (const char *model : {"gpt-image-1", "gpt-image-1.5", "gpt-image-1-mini", "GPT-Image-2", "unknown"}) {
        for (const bool wants4K : {true, false}) {
            EXPECT_EQ(
                bodyFor(model, wants4K),
                QByteArray(R"({"background":"opaque","model":")") + model +
                    R"(","moderation":"low","output_format":"png","prompt":"p","quality":"high","size":"1536x1024"})");
            EXPECT_EQ(silenceLimitFor(model, wants4K), std::chrono::seconds(180));
        }
    }
}

TEST(OpenAIProvider, theKeyGoesIntoOneHeader)
{
    const ServiceRequest request = requestFor(OpenAIProvider::service(), {QString(), QString(), false}, u"KEY"_s);
    EXPECT_EQ(request.path, u"/v1/images/generations"_s);
    EXPECT_EQ(request.keyHeader.name, "Authorization");
    EXPECT_EQ(request.keyHeader.value, "Bearer KEY");
}

TEST(OpenAIProvider, answersAreReadThisWay)
{
    const std::vector<AnswerCase> cases{
        {R"({"data":[{"b64_json":"TWFu"}]})", "picture:png:Man"},
        // There is no data address here, and no message of its own for what does not decode.
        {R"({"data":[{"b64_json":"data:image/png;base64,TWFu"}]})", "Invalid response: No image in response"},
        {R"({"data":[{"b64_json":"TW"}]})", "Invalid response: No image in response"},
        {R"({"data":[]})", "Invalid response: No image in response"},
        {R"({"data":[null]})", "Invalid response: No image in response"},
        {R"({"data":"TWFu"})", "Invalid response: No image in response"},
    };
    for (const AnswerCase &each : cases) {
        EXPECT_EQ(outcomeOf(each.answer, OpenAIProvider::service().answer).toStdString(), each.outcome) << each.answer;
    }
}

} // namespace quorvane
