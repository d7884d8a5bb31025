#include "demo-service/Misbehaviour.h"

#include "RawClient.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <zlib.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Kind = Misbehaviour::Kind;
using End = RawClient::End;

QImage plainPicture(const QString & /*prompt*/, QSize /*size*/)
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

QJsonObject objectOf(const QByteArray &answer)
{
    return QJsonDocument::fromJson(bodyOf(answer)).object();
}

bool hasGoodPicture(const QByteArray &body)
{
    const QJsonValue base64 = QJsonDocument::fromJson(body).object()[u"data"_s][0][u"b64_json"_s];
    return !QImage::fromData(QByteArray::fromBase64(base64.toString().toLatin1()), "png").isNull();
}

QByteArray base64Of(const QByteArray &answer)
{
    return objectOf(answer)[u"data"_s][0][u"b64_json"_s].toString().toLatin1();
}

bool strictlyDecodes(const QByteArray &base64)
{
    return base64.size() % 4 == 0 && static_cast<bool>(QByteArray::fromBase64Encoding(
                                         base64, QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors));
}

/// How much a gzip stream unpacks to, and what stands in front.
std::pair<qint64, QByteArray> unpack(QByteArray compressed)
{
    z_stream stream{};
    inflateInit2(&stream, MAX_WBITS + 16);
    stream.next_in = reinterpret_cast<Bytef *>(compressed.data());
    stream.avail_in = static_cast<uInt>(compressed.size());
    std::array<char, 65536> buffer{};
    qint64 total = 0;
    QByteArray front;
    int status = Z_OK;
    while (status == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef *>(buffer.data());
        stream.avail_out = buffer.size();
        status = inflate(&stream, Z_NO_FLUSH);
        const qint64 now = buffer.size() - stream.avail_out;
        front += QByteArray(buffer.data(), std::min<qint64>(now, 65536 - front.size()));
        total += now;
    }
    inflateEnd(&stream);
    EXPECT_EQ(status, Z_STREAM_END);
    return {total, front};
}

QByteArray joinChunks(QByteArray body)
{
    QByteArray joined;
    while (true) {
        const qsizetype line = body.indexOf("\r\n");
        const qsizetype size = line < 0 ? -1 : body.left(line).toLongLong(nullptr, 16);
        if (size <= 0) {
            return size == 0 ? joined : QByteArray("<cut>");
        }
        joined += body.mid(line + 2, size);
        body.remove(0, line + 2 + size + 2);
    }
}

} // namespace

TEST_F(MisbehaviourTest, everyNameIsReadAndFieldsAreSet)
{
    for (const QByteArray &name : misbehaviourNames()) {
        EXPECT_TRUE(misbehaviourFromText(name).has_value()) << name.toStdString();
    }
    const auto drip = misbehaviourFromText("slow-drip:bytes=10,pause=5");
    ASSERT_TRUE(drip.has_value());
    EXPECT_EQ(drip->kind, Kind::SlowDrip);
    EXPECT_EQ(drip->bytes, 10);
    EXPECT_EQ(drip->pause.count(), 5);
    const auto error = misbehaviourFromText("error-object:status=429,text=Later, please");
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->status, 429);
    EXPECT_EQ(error->text, "Later, please");
    EXPECT_FALSE(misbehaviourFromText("friendly").has_value());
    EXPECT_FALSE(misbehaviourFromText("slow-drip:bits=1").has_value());
    EXPECT_FALSE(misbehaviourFromText("slow-drip:bytes=many").has_value());
}

TEST_F(MisbehaviourTest, errorsComeInTheirShapes)
{
    Misbehaviour error(Kind::ErrorObject);
    error.status = 429;
    error.text = "Zu schnell: größer";
    const QByteArray answer = ask(error).receiveAnswer();
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 429 "));
    EXPECT_EQ(objectOf(answer)[u"error"_s][u"message"_s].toString(), u"Zu schnell: größer"_s);
    EXPECT_TRUE(objectOf(ask(Kind::ErrorText).receiveAnswer())[u"error"_s].isString());
    EXPECT_TRUE(QJsonDocument::fromJson(bodyOf(ask(Kind::JsonList).receiveAnswer())).isArray());
    EXPECT_TRUE(QJsonDocument::fromJson(bodyOf(ask(Kind::PlainText).receiveAnswer())).isNull());
    EXPECT_EQ(headerOf(ask(Kind::EmptyBody).receiveAnswer(), "Content-Length"), "0");
    EXPECT_TRUE(objectOf(ask(Kind::NoPicture).receiveAnswer())[u"data"_s].toArray().isEmpty());
    const QByteArray odd = bodyOf(ask(Kind::OddErrorText).receiveAnswer());
    EXPECT_TRUE(odd.contains("\\ud800 ") && odd.contains("\\u0000")) << odd.toStdString();
}

TEST_F(MisbehaviourTest, aGoodBodyComesUnderABadStatus)
{
    Misbehaviour bad(Kind::GoodBodyBadStatus);
    for (const int status : {404, 500}) {
        bad.status = status;
        const QByteArray answer = ask(bad).receiveAnswer();
        EXPECT_EQ(answer.mid(9, 3).toInt(), status);
        EXPECT_TRUE(hasGoodPicture(bodyOf(answer)));
    }
}

TEST_F(MisbehaviourTest, strangeWrappingsHoldAGoodPicture)
{
    const QByteArray odd = bodyOf(ask(Kind::OddTexts).receiveAnswer());
    EXPECT_TRUE(odd.contains("\\ud800") && odd.contains("\\udc00") && odd.contains("\\u0000"));
    EXPECT_TRUE(bodyOf(ask(Kind::InvalidUtf8).receiveAnswer()).contains('\xff'));
    const QByteArray twice = bodyOf(ask(Kind::DuplicateKeys).receiveAnswer());
    EXPECT_EQ(twice.count("\"data\":"), 2);
    EXPECT_TRUE(hasGoodPicture(twice)) << "Qt takes the last of two";
    const QByteArray many = ask(Kind::ManyCandidates, geminiRequest()).receiveAnswer();
    EXPECT_EQ(objectOf(many)[u"candidates"_s].toArray().size(), 10000);
    EXPECT_TRUE(base64Of(ask(Kind::DataAddress).receiveAnswer()).startsWith("data:image/png;base64,"));
}

TEST_F(MisbehaviourTest, largeAnswersAreAsLargeAsAskedFor)
{
    Misbehaviour huge(Kind::HugeAnswer);
    huge.bytes = 5'000'000;
    const QByteArray answer = bodyOf(ask(huge).receiveAnswer());
    EXPECT_NEAR(answer.size(), 5'000'000, 100);
    EXPECT_TRUE(hasGoodPicture(answer));
    Misbehaviour nested(Kind::NestedLists);
    EXPECT_EQ(nested.bytes, 64 * 1024 * 1024);
    nested.bytes = 1'000'000;
    const QByteArray lists = bodyOf(ask(nested).receiveAnswer());
    EXPECT_EQ(lists.count('['), lists.count(']'));
    EXPECT_NEAR(lists.size(), 1'000'000, 2);
}

TEST_F(MisbehaviourTest, brokenBase64IsBrokenInItsOwnWay)
{
    EXPECT_TRUE(strictlyDecodes(base64Of(goodAnswer())));
    const QByteArray unpadded = base64Of(ask(Kind::Base64MissingPadding).receiveAnswer());
    EXPECT_NE(unpadded.size() % 4, 0);
    EXPECT_TRUE(strictlyDecodes(unpadded + QByteArray(4 - unpadded.size() % 4, '=')));
    const QByteArray surplus = base64Of(ask(Kind::Base64SurplusPadding).receiveAnswer());
    EXPECT_TRUE(surplus.endsWith("==") && !strictlyDecodes(surplus));
    const QByteArray broken = base64Of(ask(Kind::Base64LineBreaks).receiveAnswer());
    EXPECT_EQ(broken.indexOf("\r\n"), 76);
    EXPECT_TRUE(strictlyDecodes(QByteArray(broken).replace("\r\n", "")));
    const QByteArray url = base64Of(ask(Kind::Base64UrlAlphabet).receiveAnswer());
    EXPECT_TRUE(url.contains('_') && !url.contains('/') && !strictlyDecodes(url));
}

TEST_F(MisbehaviourTest, aSlowDripIsSlowAndWhole)
{
    Misbehaviour drip(Kind::SlowDrip);
    drip.bytes = 50;
    drip.pause = std::chrono::milliseconds(5);
    QElapsedTimer clock;
    RawClient &client = ask(drip);
    clock.start();
    const QByteArray answer = client.receiveAnswer();
    EXPECT_TRUE(hasGoodPicture(bodyOf(answer)));
    EXPECT_GE(clock.elapsed(), (answer.size() / 50 - 2) * 5);
}

TEST_F(MisbehaviourTest, silenceIsSilentAndKeepsTheConnection)
{
    const auto receivedWhile = [this](Kind kind, qsizetype first) {
        const int connections = m_service.connections();
        const qsizetype requests = m_service.requests().size();
        RawClient &client = ask(kind);
        client.receive(first);
        EXPECT_TRUE(waitFor([&] {
            return m_service.connections() > connections &&
                   (kind == Kind::SilenceOnAccept || m_service.requests().size() > requests);
        }));
        EXPECT_FALSE(goodAnswer().isEmpty());
        const QByteArray received = client.receiveNow();
        EXPECT_EQ(client.end(), End::Open);
        return received;
    };
    EXPECT_EQ(receivedWhile(Kind::SilenceOnAccept, 0), "");
    EXPECT_EQ(m_service.requests().size(), 1) << "the unread request is not recorded, the good one is";
    EXPECT_EQ(receivedWhile(Kind::Silence, 0), "");
    EXPECT_EQ(m_service.requests().size(), 3);
    EXPECT_TRUE(receivedWhile(Kind::SilenceAfterHeaders, 20).endsWith("\r\n\r\n"));
    const QByteArray half = receivedWhile(Kind::SilenceMidBody, 100);
    EXPECT_EQ(bodyOf(half).size(), headerOf(half, "Content-Length").toLongLong() / 2);
}

TEST_F(MisbehaviourTest, resetsComeInTheirPhase)
{
    EXPECT_EQ(ask(Kind::ResetOnAccept).receiveAll(), "");
    EXPECT_EQ(m_client->end(), End::Reset);

    // Half a request is enough for the second one.
    EXPECT_EQ(ask(Kind::ResetDuringRequest, openAIRequest().left(60)).receiveAll(), "");
    EXPECT_EQ(m_client->end(), End::Reset);
    EXPECT_TRUE(m_service.requests().isEmpty());

    EXPECT_EQ(ask(Kind::ResetAfterRequest).receiveAll(), "");
    EXPECT_EQ(m_client->end(), End::Reset);
    EXPECT_EQ(m_service.requests().size(), 1);

    EXPECT_TRUE(ask(Kind::ResetAfterHeaders).receiveAll().endsWith("\r\n\r\n"));
    EXPECT_EQ(m_client->end(), End::Reset);

    const QByteArray half = ask(Kind::ResetMidBody).receiveAll();
    EXPECT_EQ(bodyOf(half).size(), headerOf(half, "Content-Length").toLongLong() / 2);
    EXPECT_EQ(m_client->end(), End::Reset);
}

TEST_F(MisbehaviourTest, lengthsAreWrongBothWays)
{
    const QByteArray cut = ask(Kind::CutBody).receiveAll();
    EXPECT_EQ(bodyOf(cut).size(), headerOf(cut, "Content-Length").toLongLong() / 2);
    EXPECT_EQ(m_client->end(), End::Closed);
    const QByteArray tooLarge = ask(Kind::LengthTooLarge).receiveAll();
    EXPECT_EQ(bodyOf(tooLarge).size() + 1000, headerOf(tooLarge, "Content-Length").toLongLong());
    EXPECT_TRUE(hasGoodPicture(bodyOf(tooLarge)));
    const QByteArray tooSmall = ask(Kind::LengthTooSmall).receiveAll();
    EXPECT_EQ(bodyOf(tooSmall).size() / 2, headerOf(tooSmall, "Content-Length").toLongLong());
    EXPECT_TRUE(hasGoodPicture(bodyOf(tooSmall)));
}

TEST_F(MisbehaviourTest, chunksAreWholeOrCut)
{
    Misbehaviour chunked(Kind::Chunked);
    chunked.bytes = 100;
    RawClient &client = ask(chunked);
    QByteArray answer;
    while (!answer.endsWith("\r\n0\r\n\r\n") && client.end() == End::Open) {
        answer = client.receive(answer.size() + 1);
    }
    EXPECT_EQ(headerOf(answer, "Transfer-Encoding"), "chunked");
    EXPECT_TRUE(hasGoodPicture(joinChunks(bodyOf(answer))));
    EXPECT_EQ(joinChunks(bodyOf(ask(Kind::ChunkedCut).receiveAll())), "<cut>");
    EXPECT_EQ(m_client->end(), End::Closed);
}

TEST_F(MisbehaviourTest, endlessAnswersGoOnAndOn)
{
    EXPECT_GE(ask(Kind::EndlessBody).receive(30'000'000).size(), 30'000'000);
    const QByteArray headers = ask(Kind::EndlessHeaders).receive(10'000'000);
    EXPECT_GE(headers.size(), 10'000'000);
    EXPECT_FALSE(headers.contains("\r\n\r\n"));
}

TEST_F(MisbehaviourTest, compressedAnswersUnpackToWhatTheyShould)
{
    const QByteArray good = ask(Kind::Gzip).receiveAnswer();
    EXPECT_EQ(headerOf(good, "Content-Encoding"), "gzip");
    EXPECT_TRUE(hasGoodPicture(unpack(bodyOf(good)).second));
    Misbehaviour bomb(Kind::GzipBomb);
    bomb.bytes = 100'000'000;
    const QByteArray small = bodyOf(ask(bomb).receiveAnswer());
    EXPECT_LT(small.size(), 200'000);
    const auto [size, front] = unpack(small);
    EXPECT_GE(size, 100'000'000);
    EXPECT_TRUE(front.startsWith(R"({"padding":"aaa)"));
}

TEST_F(MisbehaviourTest, garbageIsNoHttp)
{
    const QByteArray garbage = ask(Kind::Garbage).receiveAll();
    EXPECT_FALSE(garbage.isEmpty() || garbage.startsWith("HTTP"));
    EXPECT_EQ(m_client->end(), End::Closed);
}

TEST_F(MisbehaviourTest, redirectsLeadElsewhereOrInACircle)
{
    Misbehaviour elsewhere(Kind::Redirect);
    elsewhere.status = 302;
    elsewhere.text = "http://127.0.0.1:1/away";
    const QByteArray away = ask(elsewhere).receiveAnswer();
    EXPECT_TRUE(away.startsWith("HTTP/1.1 302 "));
    EXPECT_EQ(headerOf(away, "Location"), "http://127.0.0.1:1/away");
    EXPECT_EQ(headerOf(ask(Kind::RedirectLoop).receiveAnswer(), "Location"), "/v1/images/generations");
}

} // namespace quorvane
