#pragma once

#include "demo-service/Misbehaviour.h"

#include "RawClient.h"
#include "demo-service/DemoService.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <zlib.h>

namespace quorvane {

using namespace Qt::StringLiterals;

using Kind = Misbehaviour::Kind;

inline QImage plainPicture(const QString & /*prompt*/, QSize /*size*/)
{
    QImage image(16, 9, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}

class MisbehaviourTest : public testing::Test
{
  protected:
    MisbehaviourTest() { m_service.setPictureMaker(plainPicture); }

    /// Opens a connection to the service that now misbehaves so, and sends it a good request.
    RawClient &ask(const Misbehaviour &misbehaviour, const QByteArray &request = openAIRequest())
    {
        m_service.setMisbehaviour(misbehaviour);
        m_client.emplace(m_service.baseAddress());
        m_client->send(request);
        return *m_client;
    }

    /// A whole good exchange on a connection of its own. What the service did on others before, they have received.
    QByteArray goodAnswer()
    {
        m_service.setMisbehaviour(Kind::None);
        RawClient other(m_service.baseAddress());
        other.send(openAIRequest());
        return other.receiveAnswer();
    }

    DemoService m_service;
    std::optional<RawClient> m_client;
};

/// The JSON object in an answer.
inline QJsonObject objectOf(const QByteArray &answer)
{
    return QJsonDocument::fromJson(bodyOf(answer)).object();
}

inline bool hasGoodPicture(const QByteArray &body)
{
    const QJsonValue base64 = QJsonDocument::fromJson(body).object()[u"data"_s][0][u"b64_json"_s];
    return !QImage::fromData(QByteArray::fromBase64(base64.toString().toLatin1()), "png").isNull();
}

} // namespace quorvane
