#pragma once

#include "Platform/Desktops/DesktopPictureSway.h"
#include "Platform/Files/Paths.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

inline const QString kFirst = u"HEADLESS-1"_s;
inline const QString kSecond = u"HEADLESS-2"_s;
/// Wide on one screen, high on the other, so that each crops another pair of edges.
constexpr QSize kSource(1200, 1000);

class SwayScreensTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = PrivateSway::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        // sway runs as another user where the tests run as root, and must be able to read the pictures.
        QFile::setPermissions(m_home.path(), QFile::Permissions(0x7055));
        m_sway = std::make_unique<PrivateSway>(QList<QSize>{QSize(800, 450), QSize(400, 600)});
        ASSERT_TRUE(m_sway->isReady());
        m_desktop = std::make_unique<DesktopPictureSway>(m_sway->socketPath(), QString());
    }

    QString save(const QString &path, int mark, const char *format = "png")
    {
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(QImageWriter(path, format).write(positionPicture(kSource, mark)));
        return path;
    }

    QString library(const QString &name) { return m_home.library() + '/'_L1 + name; }

    /// Why the screens do not come to show the picture with the mark; empty when they do.
    QString waitForPicture(int mark)
    {
        QString first;
        QString second;
        (void)waitFor(
            [&] {
                first = differenceFromFill(m_sway->screenshot(kFirst), kSource, mark);
                second = differenceFromFill(m_sway->screenshot(kSecond), kSource, mark);
                return first.isEmpty() && second.isEmpty();
            },
            std::chrono::seconds(5));
        return first + second;
    }

    QStringList copies() { return QDir(Paths::stateHome() + u"/quorvane"_s).entryList(QDir::Files | QDir::Hidden); }

    PrivateHome m_home;
    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<DesktopPictureSway> m_desktop;
};

} // namespace quorvane
