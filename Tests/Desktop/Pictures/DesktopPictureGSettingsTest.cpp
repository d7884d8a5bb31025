// What is kept in the settings, and what goes wrong there: real settings on a private bus, where the test itself stands
// for the shell. What a shell shows of them is SessionDesktopTest's.

#include "Platform/Bus/DesktopBus.h"
#include "Platform/Desktops/Protocols/SettingsGroup.h"
#include "Support/Files.h"
#include "Support/PositionPicture.h"
#include "Support/PrivateSession.h"

#include <QDBusConnection>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {

namespace {

const QString kSchema = QStringLiteral("org.gnome.desktop.background");
const QString kShell = QStringLiteral("org.gnome.Shell");

class DesktopPictureGSettingsTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = firstMissing({QStringLiteral("gsettings")}) + PrivateSession::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        if (!SettingsGroup::isInstalled(kSchema)) {
            GTEST_SKIP() << "gsettings-desktop-schemas is not installed";
        }
        if (!QFileInfo::exists(QStringLiteral("/usr/share/dbus-1/services/ca.desrt.dconf.service"))) {
            GTEST_SKIP() << "dconf-service is not installed";
        }
        QFile::setPermissions(m_pictures.path(), QFile::Permissions(0x7055));
        QProcessEnvironment variables;
        variables.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"));
        m_session = std::make_unique<PrivateSession>(variables);
        ASSERT_TRUE(m_session->isReady());
        ASSERT_TRUE(QDBusConnection::connectToBus(m_session->busAddress(), kShell).registerService(kShell));
    }

    void TearDown() override { QDBusConnection::disconnectFromBus(kShell); }

    QString save(const QString &name, int mark)
    {
        const QString path = m_pictures.filePath(name);
        EXPECT_TRUE(positionPicture(QSize(60, 40), mark).save(path));
        return path;
    }

    std::string failureToSet(const QString &path)
    {
        if (m_probe == nullptr) {
            m_probe = m_session->start(QStringLiteral(DESKTOP_PICTURE_PROBE), {}, OwnedProgram::Input::Lines);
        }
        m_probe->writeLine(QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded));
        const QByteArray line = m_probe->readLine();
        EXPECT_NE(line, QByteArray()) << m_probe->errors().constData();
        return QJsonDocument::fromJson(line).object().value(QLatin1String("failure")).toString().toStdString();
    }

    /// The value of a key as another program reads it.
    QString kept(const char *key)
    {
        const auto reading =
            m_session->start(QStringLiteral("gsettings"), {QStringLiteral("get"), kSchema, QString::fromLatin1(key)});
        return QString::fromUtf8(reading->readLine()).remove(QLatin1Char('\''));
    }

    QTemporaryDir m_pictures;
    std::unique_ptr<PrivateSession> m_session;
    std::unique_ptr<OwnedProgram> m_probe;
};

} // namespace

TEST_F(DesktopPictureGSettingsTest, bothStylesGetOneNewCopyAndTheOldOneGoes)
{
    const QString picture = save(QStringLiteral("picture.png"), 40);
    EXPECT_EQ(failureToSet(picture), "");
    EXPECT_EQ(kept("picture-options"), QStringLiteral("zoom"));
    const QString first = QUrl(kept("picture-uri")).toLocalFile();
    EXPECT_EQ(kept("picture-uri-dark"), kept("picture-uri"));
    EXPECT_NE(contentOf(first), QByteArray());
    EXPECT_EQ(contentOf(first), contentOf(picture));

    EXPECT_EQ(failureToSet(picture), "");
    EXPECT_EQ(QUrl(kept("picture-uri")).toLocalFile(), first) << "what is shown already is copied again";

    EXPECT_EQ(failureToSet(save(QStringLiteral("picture.png"), 80)), "");
    const QString second = QUrl(kept("picture-uri")).toLocalFile();
    EXPECT_NE(second, first);
    EXPECT_EQ(contentOf(second), contentOf(picture));
    EXPECT_FALSE(QFile::exists(first));
}

TEST_F(DesktopPictureGSettingsTest, aPictureThatCannotBeReadIsAnErrorAndChangesNothing)
{
    EXPECT_EQ(failureToSet(save(QStringLiteral("picture.png"), 40)), "");
    const QString before = kept("picture-uri");
    const QString broken = m_pictures.filePath(QStringLiteral("broken.png"));
    ASSERT_TRUE(putFile(broken, "no picture"));
    EXPECT_THAT(failureToSet(broken), testing::StartsWith("The picture cannot be read: "));
    EXPECT_THAT(failureToSet(m_pictures.filePath(QStringLiteral("missing.png"))),
                testing::StartsWith("The picture cannot be read: "));
    EXPECT_EQ(kept("picture-uri"), before);
}

TEST_F(DesktopPictureGSettingsTest, settingsThatNobodyElseSeesAreAnError)
{
    m_session->setVariable(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    EXPECT_EQ(failureToSet(save(QStringLiteral("picture.png"), 40)),
              "The settings \"org.gnome.desktop.background\" cannot be kept: GLib has no dconf here");
}

TEST_F(DesktopPictureGSettingsTest, aRefusalToKeepTheSettingsIsToldInItsOwnWords)
{
    ASSERT_TRUE(PrivateSession::give(m_session->configFolder() + QStringLiteral("/dconf"), "a file, no folder"));
    EXPECT_THAT(failureToSet(save(QStringLiteral("picture.png"), 40)), testing::HasSubstr("Not a directory"));
}

TEST_F(DesktopPictureGSettingsTest, settingsThatDoNotAnswerAreGivenUp)
{
    ASSERT_TRUE(PrivateSession::give(m_session->servicesFolder() + QStringLiteral("/ca.desrt.dconf.service"),
                                     "[D-BUS Service]\nName=ca.desrt.dconf\nExec=/bin/sleep 1000\n"));
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    ASSERT_TRUE(DesktopBus(m_session->busAddress(), QDeadlineTimer(20'000))
                    .call(bus, QStringLiteral("/org/freedesktop/DBus"), bus, QStringLiteral("ReloadConfig")));
    EXPECT_EQ(failureToSet(save(QStringLiteral("picture.png"), 40)), "The settings of GNOME do not answer");
}

TEST_F(DesktopPictureGSettingsTest, aShellThatIsGoneIsAnError)
{
    EXPECT_EQ(failureToSet(save(QStringLiteral("picture.png"), 40)), "");
    ASSERT_TRUE(QDBusConnection(kShell).unregisterService(kShell));
    EXPECT_THAT(failureToSet(save(QStringLiteral("other.png"), 80)),
                testing::StartsWith("GNOME does not draw the background now: org.gnome.Shell or "));
}

} // namespace quorvane
