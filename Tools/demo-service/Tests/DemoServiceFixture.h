#pragma once

#include "RawClient.h"
#include "demo-service/DemoService.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

inline QImage plainPicture(const QString & /*prompt*/, QSize size)
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

inline Answer ask(const DemoService &service, const QByteArray &request)
{
    RawClient client(service.baseAddress());
    client.send(request);
    const QByteArray answer = client.receiveAnswer();
    return {answer.mid(9, 3).toInt(), QJsonDocument::fromJson(bodyOf(answer)).object()};
}

inline int refusalStatus(const DemoService &service, const QByteArray &request)
{
    const Answer answer = ask(service, request);
    const QJsonObject error = answer.body.value(u"error"_s).toObject();
    EXPECT_FALSE(error.value(u"message"_s).toString().isEmpty());
    EXPECT_EQ(error.value(u"code"_s).toInt(), answer.status);
    return answer.status;
}

} // namespace quorvane
