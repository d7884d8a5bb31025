// Every desktop that a person logs in to, as it is: with two screens of different size, judged by what they show.

#include "BigDesktops.h"
#include "RealDesktop.h"

#include "Platform/Pictures/FillCrop.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/WaitFor.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kSource(1200, 1000);
/// Panels, notifications and the like hide no more of the 49 places that are compared.
constexpr int kHidden = 10;
constexpr std::chrono::seconds kDrawingLimit{20};

class SessionDesktopTest : public testing::TestWithParam<TestedDesktop>
{
  protected:
    void SetUp() override
    {
        if (GetParam().isBig && !bigDesktopsAreWanted()) {
            GTEST_SKIP() << kBigDesktopsText;
        }
        const QString missing = GetParam().missing();
        if (!missing.isEmpty() && bigDesktopsAreWanted()) {
            FAIL() << missing.toStdString() << " is not installed";
        } else if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        // The desktop is another user's where the tests run as root.
        QFile::setPermissions(m_pictures.path(), QFile::Permissions(0x7055));
        m_desktop = GetParam().make();
        ASSERT_TRUE(m_desktop->isReady());
        m_probe = m_desktop->session().start(QStringLiteral(DESKTOP_PICTURE_PROBE), {}, OwnedProgram::Input::Lines);
    }

    void TearDown() override
    {
        const QByteArray folder = qgetenv("QUORVANE_TEST_SCREENSHOTS");
        if (m_desktop != nullptr && !folder.isEmpty()) {
            m_desktop->screenshot().save(QFile::decodeName(folder) + '/'_L1 + GetParam().name + u".png"_s);
        }
    }

    /// Puts a picture at name as the library does: whole, in place of what was there.
    QString save(const QString &name, int mark)
    {
        const QString path = m_pictures.filePath(name);
        const QString draft = m_pictures.filePath(u"draft.png"_s);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()) && positionPicture(kSource, mark).save(draft));
        EXPECT_EQ(::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path).constData()), 0);
        return path;
    }

    void ask(const QString &path) { m_probe->writeLine(QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded)); }
    QJsonObject answer()
    {
        const QByteArray line = m_probe->readLine();
        EXPECT_NE(line, QByteArray()) << m_probe->errors().constData();
        return QJsonDocument::fromJson(line).object();
    }

    QJsonObject set(const QString &path)
    {
        ask(path);
        return answer();
    }

    /// Why setting the picture failed; empty when it did not.
    std::string failureToSet(const QString &path) { return set(path).value("failure"_L1).toString().toStdString(); }

    /// Why one screen does not show the picture, given where all screens are; empty when it does.
    [[nodiscard]] QString differenceOn(const QImage &screen, const QList<QRect> &areas, int mark) const
    {
        const QString difference = differenceFromFill(screen, kSource, mark, kHidden);
        const bool mayBePart = m_desktop->plan().crop == RealDesktop::Plan::Crop::FromWhatAnotherShows;
        const bool isPart = mayBePart && std::any_of(areas.begin(), areas.end(), [&](const QRect &other) {
                                const QSize used = fillRectangle(kSource, other.size()).size();
                                return differenceFromFill(screen, kSource, mark, kHidden, used).isEmpty();
                            });
        return isPart ? QString() : difference;
    }

    /// Why one of the screens does not come to show the picture with the mark; empty when all do.
    std::string waitForPicture(int mark)
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

    QTemporaryDir m_pictures;
    std::unique_ptr<RealDesktop> m_desktop;
    std::unique_ptr<OwnedProgram> m_probe;
};

} // namespace

TEST_P(SessionDesktopTest, fillsEachScreenWhateverTheFolderIsCalledAndHoweverOftenThePathIsTheSame)
{
    ASSERT_TRUE(m_desktop->start());
    const QString name = QString::fromUtf8("o'brien $(touch x) #1 100% %41 \"q\" \n Ünïcødé 日本/picture.png");
    const QJsonObject first = set(save(name, 40));
    EXPECT_EQ(first.value("failure"_L1).toString().toStdString(), "");
    EXPECT_TRUE(first.value("failure"_L1).isNull());
    EXPECT_EQ(first.value("desktop"_L1).toString(), m_desktop->plan().way);
    EXPECT_TRUE(first.value("reason"_L1).toString().startsWith(u"XDG_CURRENT_DESKTOP names"_s));
    EXPECT_EQ(waitForPicture(40), "");
    for (const int mark : {200, 90, 140}) {
        EXPECT_EQ(failureToSet(save(name, mark)), "");
        EXPECT_EQ(waitForPicture(mark), "");
    }
    const QJsonObject other = set(save(u"other.png"_s, 60));
    EXPECT_TRUE(other.value("failure"_L1).isNull());
    EXPECT_EQ(waitForPicture(60), "");
    QStringList sizes;
    for (const QRect &area : m_desktop->areas()) {
        sizes.append(u"%1x%2"_s.arg(area.width()).arg(area.height()));
    }
    QStringList toldSizes;
    for (const QJsonValue &screen : other.value("screens"_L1).toArray()) {
        toldSizes.append(screen.toString().section(' '_L1, 1));
    }
    EXPECT_EQ(toldSizes.join(' '_L1).toStdString(), sizes.join(' '_L1).toStdString());
    EXPECT_EQ(sizes.size(), 2);
    EXPECT_NE(sizes.constFirst(), sizes.constLast());
    EXPECT_EQ(failureToSet(save(name, 240)), "");
    EXPECT_EQ(waitForPicture(240), "");
}

TEST_P(SessionDesktopTest, aScreenThatComesLaterShowsThePictureToo)
{
    ASSERT_TRUE(m_desktop->start());
    m_desktop->session().setVariable(u"QT_QPA_PLATFORM"_s, m_desktop->platform());
    const auto keeper = m_desktop->session().start(QStringLiteral(WALLPAPER_KEEPER), {save(u"picture.png"_s, 80)});
    ASSERT_EQ(keeper->readLine(), "Wallpaper set!") << keeper->errors().constData();
    EXPECT_EQ(waitForPicture(80), "");
    ASSERT_TRUE(m_desktop->plugIn());
    EXPECT_EQ(waitForPicture(80), "");
}

TEST_P(SessionDesktopTest, isUsedOnceItIsThereAndMissedWhenItIsKilled)
{
    const QString picture = save(u"picture.png"_s, 40);
    const std::string painter = m_desktop->plan().painter.toStdString();
    EXPECT_THAT(failureToSet(picture), testing::HasSubstr(painter));

    ASSERT_TRUE(m_desktop->start());
    EXPECT_EQ(failureToSet(picture), "");
    EXPECT_EQ(waitForPicture(40), "");

    // Killed while it is asked: whether it took the picture before is a matter of luck, an answer comes in any case.
    m_desktop->freeze();
    ask(save(u"other.png"_s, 200));
    ASSERT_TRUE(m_desktop->kill());
    EXPECT_TRUE(answer().contains("failure"_L1));
    EXPECT_THAT(failureToSet(picture), testing::HasSubstr(painter));
}

INSTANTIATE_TEST_SUITE_P(Real, SessionDesktopTest, testing::ValuesIn(testedDesktops()),
                         [](const testing::TestParamInfo<TestedDesktop> &tested) {
                             return tested.param.name.toStdString();
                         });

} // namespace quorvane
