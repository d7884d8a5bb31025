#include "MisbehaviourFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
