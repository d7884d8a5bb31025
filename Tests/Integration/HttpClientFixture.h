#pragma once

#include "Platform/Network/HttpClient.h"
#include "Platform/Threads/TaskScope.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

using Kind = Misbehaviour::Kind;

struct Outcome
{
    QByteArray answer;
    QString failure;
};

inline QCoro::Task<> posting(HttpClient *client, HttpClient::Request request, Outcome *outcome)
{
    try {
        outcome->answer = co_await client->post(std::move(request));
    } catch (const TransportError &error) {
        outcome->failure = error.words();
    }
}

inline Outcome post(HttpClient &client, HttpClient::Request request)
{
    Outcome outcome;
    TaskScope scope;
    scope.start(posting(&client, std::move(request), &outcome));
    EXPECT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    return outcome;
}

inline HttpClient::Request request(const DemoService &service, const QString &path = u"/v1/images/generations"_s)
{
    HttpClient::Request result;
    result.url = QUrl(service.baseAddress().toString() + path);
    result.contentType = "application/json";
    result.secret = {"Authorization", "Bearer SECRET"};
    result.body =
        R"({"model":"grok-imagine-image","prompt":"p","response_format":"b64_json","n":1,"aspect_ratio":"16:9"})";
    result.silenceLimit = std::chrono::milliseconds(700);
    return result;
}

inline void paintSmall(DemoService &service)
{
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(64, 36, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        return image;
    });
}

class HttpClientTest : public testing::Test
{
  protected:
    HttpClientTest() { paintSmall(service); }

    Outcome postWith(const Misbehaviour &misbehaviour)
    {
        service.setMisbehaviour(misbehaviour);
        HttpClient client;
        HttpClient::Request asked = request(service);
        asked.silenceLimit = silenceLimit;
        return post(client, std::move(asked));
    }

    std::chrono::milliseconds silenceLimit{700};

    DemoService service;
};

} // namespace quorvane
