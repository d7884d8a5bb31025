#include "MisbehaviourFixture.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

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

} // namespace

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

} // namespace quorvane
