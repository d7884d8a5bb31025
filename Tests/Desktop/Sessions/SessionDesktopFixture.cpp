#include "SessionDesktopFixture.h"

#include "BigDesktops.h"

#include "Platform/Pictures/FillCrop.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/WaitFor.h"

#include <QDir>
#include <QJsonDocument>
#include <QUrl>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kSource(1200, 1000);
/// Panels, notifications and the like hide no more of the 49 places that are compared.
constexpr int kHidden = 10;
constexpr std::chrono::seconds kDrawingLimit{20};

} // namespace

void SessionDesktopFixture::prepare(const TestedDesktop &tested)
{
    if (tested.isBig && !bigDesktopsAreWanted()) {
        GTEST_SKIP() << kBigDesktopsText;
    }
    const QString missing = tested.missing();
    if (!missing.isEmpty() && bigDesktopsAreWanted()) {
        FAIL() << missing.toStdString() << " is not installed";
    } else if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString() << " is not installed";
    }
    // The desktop is another user's where the tests run as root.
    QFile::setPermissions(m_pictures.path(), QFile::Permissions(0x7055));
    m_desktop = tested.make();
    ASSERT_TRUE(m_desktop->isReady());
    startProgram();
}

void SessionDesktopFixture::startProgram()
{
    m_probe = m_desktop->session().start(QStringLiteral(DESKTOP_PICTURE_PROBE), {}, OwnedProgram::Input::Lines);
}

void SessionDesktopFixture::TearDown()
{
    const QByteArray folder = qgetenv("QUORVANE_TEST_SCREENSHOTS");
    if (m_desktop != nullptr && !folder.isEmpty()) {
        m_desktop->screenshot().save(QFile::decodeName(folder) + '/'_L1 + m_desktop->plan().name + u".png"_s);
    }
}

QString SessionDesktopFixture::save(const QString &name, int mark)
{
    const QString path = m_pictures.filePath(name);
    const QString draft = m_pictures.filePath(u"draft.png"_s);
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()) && positionPicture(kSource, mark).save(draft));
    EXPECT_EQ(::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path).constData()), 0);
    return path;
}

void SessionDesktopFixture::ask(const QString &path)
{
    m_probe->writeLine(QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded));
}

QJsonObject SessionDesktopFixture::answer()
{
    const QByteArray line = m_probe->readLine();
    EXPECT_NE(line, QByteArray()) << m_probe->errors().constData();
    return QJsonDocument::fromJson(line).object();
}

QJsonObject SessionDesktopFixture::set(const QString &path)
{
    ask(path);
    return answer();
}

std::string SessionDesktopFixture::failureToSet(const QString &path)
{
    return set(path).value("failure"_L1).toString().toStdString();
}

QString SessionDesktopFixture::differenceOn(const QImage &screen, const QList<QRect> &areas, int mark) const
{
    const QString difference = differenceFromFill(screen, kSource, mark, kHidden);
    const bool mayBePart = m_desktop->plan().crop == RealDesktop::Plan::Crop::FromWhatAnotherShows;
    const bool isPart = mayBePart && std::any_of(areas.begin(), areas.end(), [&](const QRect &other) {
                            const QSize used = fillRectangle(kSource, other.size()).size();
                            return differenceFromFill(screen, kSource, mark, kHidden, used).isEmpty();
                        });
    return isPart ? QString() : difference;
}

std::string SessionDesktopFixture::waitForPicture(int mark)
{
    QString difference;
    (void)waitFor(
        [&] {
            const QImage shot = m_desktop->screenshot();
            difference.clear();
            const QList<QRect> areas = m_desktop->areas();
            for (const QRect &area : areas) {
                difference += differenceOn(shot.copy(area), areas, mark);
            }
            return difference.isEmpty();
        },
        kDrawingLimit);
    return difference.toStdString();
}

} // namespace quorvane
