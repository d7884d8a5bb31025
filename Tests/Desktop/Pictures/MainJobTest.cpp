// The whole way on real parts: the program, the service over TLS with an authority made for this run, the library, and
// a real desktop, judged by the pixels of its screens.

#include "Support/CommandRun.h"
#include "Support/PositionPicture.h"
#include "Support/PrivateHome.h"
#include "Support/PrivateSway.h"
#include "Support/PrivateXServer.h"
#include "Support/TestCertificates.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QFile>
#include <QJsonObject>

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
        QFile authority(home.path() + QStringLiteral("/authority.pem"));
        EXPECT_TRUE(authority.open(QIODevice::WriteOnly));
        authority.write(certificates.authority().toPem());
    }

    /// From a prompt to the wallpaper by one command; the picture's path.
    QString makeWallpaper(QProcessEnvironment environment) const
    {
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
            environment.insert(QLatin1String(name), qEnvironmentVariable(name));
        }
        environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
        environment.insert(QStringLiteral("QUORVANE_GEMINI_BASE_URL"), service.baseAddress().toString());
        environment.insert(QStringLiteral("SSL_CERT_FILE"), home.path() + QStringLiteral("/authority.pem"));
        EXPECT_EQ(
            runQuorvane({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, environment, "KEY")
                .status,
            0);
        const CommandRun made = runQuorvane({QStringLiteral("generate"), QStringLiteral("--prompt"),
                                             QStringLiteral("a lake"), QStringLiteral("--json")},
                                            environment);
        EXPECT_EQ(made.status, 0) << made.errors.constData();
        EXPECT_EQ(made.json()[QLatin1String("status")].toString(), QStringLiteral("Wallpaper set!"));
        const QString path = made.json()[QLatin1String("file")].toString();
        EXPECT_EQ(QImage(path).size(), QSize(3840, 2160));
        const QJsonValue newest =
            runQuorvane({QStringLiteral("history"), QStringLiteral("--json")}, environment).json()[0];
        EXPECT_EQ(newest[QLatin1String("path")].toString(), path);
        EXPECT_EQ(newest[QLatin1String("prompt")].toString(), QStringLiteral("a lake"));
        const QJsonValue status = runQuorvane({QStringLiteral("status"), QStringLiteral("--json")}, environment).json();
        EXPECT_EQ(status[QLatin1String("currentWallpaper")].toString(), path);
        EXPECT_EQ(status[QLatin1String("screens")].toArray().size(), 2);
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
        first = differenceFromFill(sway.screenshot(QStringLiteral("HEADLESS-1")), QSize(3840, 2160), kMark);
        second = differenceFromFill(sway.screenshot(QStringLiteral("HEADLESS-2")), QSize(3840, 2160), kMark);
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
    ASSERT_TRUE(server.addMonitor(QStringLiteral("left"), left));
    ASSERT_TRUE(server.addMonitor(QStringLiteral("right"), right));
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
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("QUORVANE_DESKTOP"), QStringLiteral("layer-shell"));
    const QString picture = home.path() + QStringLiteral("/picture.png");
    ASSERT_TRUE(positionPicture(QSize(800, 450), kMark).save(picture));
    const CommandRun set = runQuorvane({QStringLiteral("set"), picture, QStringLiteral("--json")}, environment);
    EXPECT_EQ(set.status, 1);
    EXPECT_TRUE(set.json()[QLatin1String("status")].toString().contains(QStringLiteral("start Quorvane")));
    const QJsonValue status = runQuorvane({QStringLiteral("status"), QStringLiteral("--json")}, environment).json();
    EXPECT_EQ(status[QLatin1String("desktop")].toString(), QStringLiteral("layer-shell"));
    EXPECT_EQ(status[QLatin1String("screens")].toArray().size(), 1);
    EXPECT_TRUE(status[QLatin1String("currentWallpaper")].isNull());
}

} // namespace quorvane
