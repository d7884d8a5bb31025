// The whole way on real parts: the program, the service over TLS with an authority made for this run, the library, and
// a real desktop, judged by the pixels of its screens.

#include "Support/CommandRun.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/PrivateHome.h"
#include "Support/TestCertificates.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QFile>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kMark = 90;

} // namespace

class MainJobTest : public testing::Test
{
  protected:
    MainJobTest()
        : service({.address = QHostAddress::LocalHost, .port = 0, .tls = certificates.valid()})
    {
        service.setPictureMaker([](const QString & /*prompt*/, QSize size) { return positionPicture(size, kMark); });
        // sway runs as another user where the tests run as root, and must be able to read the pictures.
        QFile::setPermissions(home.path(), QFile::Permissions(0x7055));
        QFile authority(home.path() + u"/authority.pem"_s);
        EXPECT_TRUE(authority.open(QIODevice::WriteOnly));
        authority.write(certificates.authority().toPem());
    }

    /// From a prompt to the wallpaper by one command; the picture's path.
    QString makeWallpaper(QProcessEnvironment environment) const
    {
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
            environment.insert(QLatin1String(name), qEnvironmentVariable(name));
        }
        environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
        environment.insert(u"QUORVANE_GEMINI_BASE_URL"_s, service.baseAddress().toString());
        environment.insert(u"SSL_CERT_FILE"_s, home.path() + u"/authority.pem"_s);
        EXPECT_EQ(runQuorvane({u"key"_s, u"set"_s, u"gemini"_s}, environment, "KEY").status, 0);
        const CommandRun made = runQuorvane({u"generate"_s, u"--prompt"_s, u"a lake"_s, u"--json"_s}, environment);
        EXPECT_EQ(made.status, 0) << made.errors.constData();
        EXPECT_EQ(made.json()["status"_L1].toString(), u"Wallpaper set!"_s);
        const QString path = made.json()["file"_L1].toString();
        EXPECT_EQ(QImage(path).size(), QSize(3840, 2160));
        const QJsonValue newest = runQuorvane({u"history"_s, u"--json"_s}, environment).json()[0];
        EXPECT_EQ(newest["path"_L1].toString(), path);
        EXPECT_EQ(newest["prompt"_L1].toString(), u"a lake"_s);
        const QJsonValue status = runQuorvane({u"status"_s, u"--json"_s}, environment).json();
        EXPECT_EQ(status["currentWallpaper"_L1].toString(), path);
        EXPECT_EQ(status["screens"_L1].toArray().size(), 2);
        return path;
    }

    PrivateHome home;
    TestCertificates certificates;
    DemoService service;
};

TEST_F(MainJobTest, aPromptBecomesTheWallpaperOfBothScreensOfSway)
{
    if (const QString missing = PrivateSway::missingProgram(); !missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    const PrivateSway sway({QSize(800, 450), QSize(400, 600)});
    ASSERT_TRUE(sway.isReady());
    (void)makeWallpaper(sway.clientEnvironment());
    QString first;
    QString second;
    EXPECT_TRUE(waitFor([&] {
        first = differenceFromFill(sway.screenshot(u"HEADLESS-1"_s), QSize(3840, 2160), kMark);
        second = differenceFromFill(sway.screenshot(u"HEADLESS-2"_s), QSize(3840, 2160), kMark);
        return first.isEmpty() && second.isEmpty();
    })) << first.toStdString()
        << second.toStdString();
}

TEST_F(MainJobTest, aPromptBecomesTheWallpaperOfBothMonitorsOfAnXServerAndStaysThere)
{
    if (const QString missing = PrivateXServer::missingProgram(); !missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    PrivateXServer server(QSize(1200, 600));
    ASSERT_TRUE(server.isReady());
    const QRect left(0, 0, 800, 450);
    const QRect right(800, 0, 400, 600);
    ASSERT_TRUE(server.addMonitor(u"left"_s, left));
    ASSERT_TRUE(server.addMonitor(u"right"_s, right));
    (void)makeWallpaper(server.clientEnvironment());
    // The program has ended by now; the picture has not.
    const QImage root = server.rootWindow();
    EXPECT_EQ(differenceFromFill(root.copy(left), QSize(3840, 2160), kMark), QString());
    EXPECT_EQ(differenceFromFill(root.copy(right), QSize(3840, 2160), kMark), QString());
}

TEST_F(MainJobTest, aCommandAloneRefusesABackgroundThatWouldEndWithIt)
{
    if (const QString missing = PrivateSway::missingProgram(); !missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    const PrivateSway sway({QSize(800, 450)});
    ASSERT_TRUE(sway.isReady());
    QProcessEnvironment environment = sway.clientEnvironment();
    environment.insert(u"HOME"_s, home.path());
    environment.insert(u"QUORVANE_DESKTOP"_s, u"layer-shell"_s);
    const QString picture = home.path() + u"/picture.png"_s;
    ASSERT_TRUE(positionPicture(QSize(800, 450), kMark).save(picture));
    const CommandRun set = runQuorvane({u"set"_s, picture, u"--json"_s}, environment);
    EXPECT_EQ(set.status, 1);
    EXPECT_TRUE(set.json()["status"_L1].toString().contains(u"start Quorvane"_s));
    const QJsonValue status = runQuorvane({u"status"_s, u"--json"_s}, environment).json();
    EXPECT_EQ(status["desktop"_L1].toString(), u"layer-shell"_s);
    EXPECT_EQ(status["screens"_L1].toArray().size(), 1);
    EXPECT_TRUE(status["currentWallpaper"_L1].isNull());
}

} // namespace quorvane
