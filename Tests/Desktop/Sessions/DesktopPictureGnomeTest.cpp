// What is kept in the settings, and what goes wrong there: real settings on a private bus, where the test itself stands
// for the shell. What a shell shows of them is SessionDesktopTest's.

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/Protocols/SettingsGroup.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSession.h"
#include "Support/Files.h"

#include <QDBusConnection>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kSchema = u"org.gnome.desktop.background"_s;
const QString kShell = u"org.gnome.Shell"_s;

class DesktopPictureGnomeTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = firstMissing({u"gsettings"_s}) + PrivateSession::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        if (!SettingsGroup::isInstalled(kSchema)) {
            GTEST_SKIP() << "gsettings-desktop-schemas is not installed";
        }
        if (!QFileInfo::exists(u"/usr/share/dbus-1/services/ca.desrt.dconf.service"_s)) {
            GTEST_SKIP() << "dconf-service is not installed";
        }
        QFile::setPermissions(m_pictures.path(), QFile::Permissions(0x7055));
        QProcessEnvironment variables;
        variables.insert(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
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
        return QJsonDocument::fromJson(line).object().value("failure"_L1).toString().toStdString();
    }

    /// The value of a key as another program reads it.
    QString kept(const char *key)
    {
        const auto reading = m_session->start(u"gsettings"_s, {u"get"_s, kSchema, QString::fromLatin1(key)});
        return QString::fromUtf8(reading->readLine()).remove('\''_L1);
    }

    QTemporaryDir m_pictures;
    std::unique_ptr<PrivateSession> m_session;
    std::unique_ptr<OwnedProgram> m_probe;
};

} // namespace

TEST_F(DesktopPictureGnomeTest, bothStylesGetOneNewCopyAndTheOldOneGoes)
{
    const QString picture = save(u"picture.png"_s, 40);
    EXPECT_EQ(failureToSet(picture), "");
    EXPECT_EQ(kept("picture-options"), u"zoom"_s);
    const QString first = QUrl(kept("picture-uri")).toLocalFile();
    EXPECT_EQ(kept("picture-uri-dark"), kept("picture-uri"));
    EXPECT_NE(contentOf(first), QByteArray());
    EXPECT_EQ(contentOf(first), contentOf(picture));

    EXPECT_EQ(failureToSet(picture), "");
    EXPECT_EQ(QUrl(kept("picture-uri")).toLocalFile(), first) << "what is shown already is copied again";

    EXPECT_EQ(failureToSet(save(u"picture.png"_s, 80)), "");
    const QString second = QUrl(kept("picture-uri")).toLocalFile();
    EXPECT_NE(second, first);
    EXPECT_EQ(contentOf(second), contentOf(picture));
    EXPECT_FALSE(QFile::exists(first));
}

TEST_F(DesktopPictureGnomeTest, aPictureThatCannotBeReadIsAnErrorAndChangesNothing)
{
    EXPECT_EQ(failureToSet(save(u"picture.png"_s, 40)), "");
    const QString before = kept("picture-uri");
    const QString broken = m_pictures.filePath(u"broken.png"_s);
    ASSERT_TRUE(putFile(broken, "no picture"));
    EXPECT_THAT(failureToSet(broken), testing::StartsWith("The picture cannot be read: "));
    EXPECT_THAT(failureToSet(m_pictures.filePath(u"missing.png"_s)),
                testing::StartsWith("The picture cannot be read: "));
    EXPECT_EQ(kept("picture-uri"), before);
}

TEST_F(DesktopPictureGnomeTest, settingsThatNobodyElseSeesAreAnError)
{
    m_session->setVariable(u"GSETTINGS_BACKEND"_s, u"memory"_s);
    EXPECT_EQ(failureToSet(save(u"picture.png"_s, 40)),
              "The settings \"org.gnome.desktop.background\" cannot be kept: GLib has no dconf here");
}

TEST_F(DesktopPictureGnomeTest, aRefusalToKeepTheSettingsIsToldInItsOwnWords)
{
    ASSERT_TRUE(PrivateSession::give(m_session->configFolder() + u"/dconf"_s, "a file, no folder"));
    EXPECT_THAT(failureToSet(save(u"picture.png"_s, 40)), testing::HasSubstr("Not a directory"));
}

TEST_F(DesktopPictureGnomeTest, settingsThatDoNotAnswerAreGivenUp)
{
    ASSERT_TRUE(PrivateSession::give(m_session->servicesFolder() + u"/ca.desrt.dconf.service"_s,
                                     "[D-BUS Service]\nName=ca.desrt.dconf\nExec=/bin/sleep 1000\n"));
    const QString bus = u"org.freedesktop.DBus"_s;
    ASSERT_TRUE(MessageBus(m_session->busAddress(), QDeadlineTimer(20'000))
                    .call(bus, u"/org/freedesktop/DBus"_s, bus, u"ReloadConfig"_s));
    EXPECT_EQ(failureToSet(save(u"picture.png"_s, 40)), "The settings of GNOME do not answer");
}

TEST_F(DesktopPictureGnomeTest, aShellThatIsGoneIsAnError)
{
    EXPECT_EQ(failureToSet(save(u"picture.png"_s, 40)), "");
    ASSERT_TRUE(QDBusConnection(kShell).unregisterService(kShell));
    EXPECT_THAT(failureToSet(save(u"other.png"_s, 80)),
                testing::StartsWith("GNOME does not draw the background now: org.gnome.Shell or "));
}

} // namespace quorvane
