// What the desktop is asked to tell while nobody looks, through a notification daemon of the test's own.

#include "ShellFixture.h"

#include "Support/WaitFor.h"

#include <QDBusArgument>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kStatus = u"Status"_s;
const QByteArray kHalfHour = "sleep 1800";

/// One call of the daemon.
struct Shown
{
    quint32 replaces;
    QString title;
    QString text;
    QVariantMap hints;
};

Shown lastOf(const Daemon &daemon)
{
    const QVariantList arguments = daemon.shown.value(daemon.shown.size() - 1);
    return {arguments.value(1).toUInt(), arguments.value(3).toString(), arguments.value(4).toString(),
            qdbus_cast<QVariantMap>(arguments.value(6))};
}

/// Size of the picture that goes along, and its first pixel.
std::pair<QSize, QColor> pictureIn(const QVariantMap &hints)
{
    const auto argument = hints.value(u"image-data"_s).value<QDBusArgument>();
    if (argument.currentSignature() != "(iiibiiay)"_L1) {
        return {};
    }
    int width = 0;
    int height = 0;
    int rowBytes = 0;
    bool hasAlpha = false;
    int bits = 0;
    int samples = 0;
    QByteArray pixels;
    argument.beginStructure();
    argument >> width >> height >> rowBytes >> hasAlpha >> bits >> samples >> pixels;
    argument.endStructure();
    const bool isWhole = bits == 8 && samples == 4 && rowBytes >= width * 4 && pixels.size() == rowBytes * height;
    const auto sample = [&pixels](int index) { return static_cast<uchar>(pixels.at(index)); };
    return {isWhole ? QSize(width, height) : QSize(), QColor(sample(0), sample(1), sample(2))};
}

} // namespace

class ShellNoticeTest : public ShellTest
{
  protected:
    [[nodiscard]] bool hasAllThatAGenerationNeeds()
    {
        return command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status == 0 &&
               command({u"auto"_s, u"on"_s}).status == 0;
    }
    [[nodiscard]] bool becomes(const QString &status) const
    {
        return waitFor([&] { return property(kStatus).toString() == status; });
    }
};

TEST_F(ShellNoticeTest, aTimedFailureIsToldAndWhatComesNextTakesItsPlace)
{
    Daemon daemon(session.connection());
    const auto application = startAndWait();
    ASSERT_TRUE(hasAllThatAGenerationNeeds());
    Misbehaviour refusal(Misbehaviour::Kind::ErrorObject);
    refusal.text = "too <many> pictures";
    service.setMisbehaviour(refusal);
    application->tell(kHalfHour);
    ASSERT_TRUE(waitFor([&daemon] { return daemon.shown.size() == 1; }));
    EXPECT_EQ(lastOf(daemon).replaces, 0U);
    EXPECT_EQ(lastOf(daemon).title, u"No new wallpaper"_s);
    EXPECT_TRUE(lastOf(daemon).text.contains(u"too &lt;many&gt; pictures"_s)) << lastOf(daemon).text.toStdString();
    EXPECT_FALSE(lastOf(daemon).hints.contains(u"image-data"_s));
    EXPECT_EQ(lastOf(daemon).hints.value(u"urgency"_s).toUInt(), 0U);
    // The user who asked sees the failure where they asked.
    EXPECT_EQ(command({u"generate"_s}).status, 1);
    EXPECT_EQ(daemon.shown.size(), 1);
    // Who asks how things stand has not failed.
    EXPECT_EQ(command({u"status"_s}).status, 0);

    service.setMisbehaviour({});
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(1600, 900, QImage::Format_RGB32);
        image.fill(QColor(10, 120, 200));
        return image;
    });
    application->tell(kHalfHour);
    ASSERT_TRUE(waitFor([&daemon] { return daemon.shown.size() == 2; }));
    EXPECT_EQ(lastOf(daemon).replaces, Daemon::kNumber);
    EXPECT_EQ(lastOf(daemon).title, u"New wallpaper"_s);
    const auto [size, color] = pictureIn(lastOf(daemon).hints);
    EXPECT_EQ(size, QSize(192, 108));
    EXPECT_EQ(color, QColor(10, 120, 200));
}

TEST_F(ShellNoticeTest, aServicesWordsAreWholeAndPlainForADaemonWithoutMarkup)
{
    Daemon daemon(session.connection());
    daemon.capabilities = {u"body"_s};
    const auto application = startAndWait();
    ASSERT_TRUE(hasAllThatAGenerationNeeds());
    Misbehaviour refusal(Misbehaviour::Kind::ErrorObject);
    refusal.text = QByteArray("one\0 <two> & three", 18);
    service.setMisbehaviour(refusal);
    application->tell(kHalfHour);
    ASSERT_TRUE(waitFor([&daemon] { return daemon.shown.size() == 1; }));
    const QString words = u"one\u2400 <two> & three"_s;
    EXPECT_TRUE(lastOf(daemon).text.contains(words)) << lastOf(daemon).text.toStdString();
    EXPECT_TRUE(property(kStatus).toString().contains(words)) << property(kStatus).toString().toStdString();
}

TEST_F(ShellNoticeTest, withAWindowOpenOnlyFailuresOfTheScheduleAreTold)
{
    Daemon daemon(session.connection());
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    ASSERT_TRUE(hasAllThatAGenerationNeeds());
    application->tell(kHalfHour);
    ASSERT_TRUE(becomes(u"Wallpaper set!"_s));
    service.setMisbehaviour(Misbehaviour::Kind::ErrorObject);
    application->tell(kHalfHour);
    ASSERT_TRUE(waitFor([&daemon] { return !daemon.shown.isEmpty(); }));
    EXPECT_EQ(daemon.shown.size(), 1);
    EXPECT_EQ(lastOf(daemon).title, u"No new wallpaper"_s);
}

TEST_F(ShellNoticeTest, aSettingThatIsNotKeptIsToldEverywhere)
{
    Daemon daemon(session.connection());
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    // A folder in the place of the file can be neither read nor replaced.
    const QString file = session.home().path() + u"/.config/Quorvane/Quorvane.conf"_s;
    (void)QFile::remove(file);
    ASSERT_TRUE(QDir().mkpath(file));
    click(MenuItem::AutoGenerate);
    ASSERT_TRUE(waitFor([&daemon] { return !daemon.shown.isEmpty(); }));
    EXPECT_EQ(lastOf(daemon).title, u"The settings are not kept"_s);
    EXPECT_TRUE(lastOf(daemon).text.contains("Quorvane.conf"_L1)) << lastOf(daemon).text.toStdString();
    EXPECT_TRUE(application->says("problems: ")) << "the window";
    EXPECT_TRUE(application->says("quorvane: ")) << "standard error";
}

TEST_F(ShellNoticeTest, withoutADaemonOrWithASilentOneEverythingGoesOn)
{
    const auto application = startAndWait();
    ASSERT_TRUE(hasAllThatAGenerationNeeds());
    application->tell(kHalfHour);
    ASSERT_TRUE(becomes(u"Wallpaper set!"_s));
    Daemon silent(session.connection());
    silent.answers = false;
    // The notice of the first may still find the daemon that came after its picture, so notices do not tell how far the
    // next ones are.
    for (const int requests : {2, 3}) {
        application->tell(kHalfHour);
        ASSERT_TRUE(waitFor([&] { return service.requests().size() == requests; }));
        ASSERT_TRUE(becomes(u"Wallpaper set!"_s));
    }
    EXPECT_TRUE(waitFor([&silent] { return silent.shown.size() >= 2; }));
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
