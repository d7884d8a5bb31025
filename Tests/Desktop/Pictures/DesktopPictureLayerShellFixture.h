#pragma once

#include "Platform/Desktops/DesktopPictureLayerShell.h"

#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

#include <QDir>

#include <gtest/gtest.h>

#include <sys/syscall.h>

namespace quorvane {

using namespace Qt::StringLiterals;

inline const QString kFirst = u"HEADLESS-1"_s;
inline const QString kSecond = u"HEADLESS-2"_s;
constexpr QSize kSource(1200, 1000);

class DesktopPictureLayerShellTest : public testing::Test
{
  protected:
    void start(const QList<QSize> &outputs = {QSize(800, 450), QSize(400, 600)})
    {
        m_sway = std::make_unique<PrivateSway>(outputs);
        ASSERT_TRUE(m_sway->isReady());
        m_desktop = makeDesktop();
    }

    void SetUp() override
    {
        const QString missing = PrivateSway::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
    }

    [[nodiscard]] QString display() const { return m_sway->runtimeFolder() + u"/wayland-1"_s; }

    [[nodiscard]] std::unique_ptr<DesktopPictureLayerShell>
    makeDesktop(std::chrono::milliseconds limit = kDesktopLimit) const
    {
        return std::make_unique<DesktopPictureLayerShell>(display(), QString(), ProgramLife::Application, limit);
    }

    [[nodiscard]] QString save(const QString &name, const QImage &picture) const
    {
        const QString path = m_home.path() + '/'_L1 + name;
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(picture.save(path, "png"));
        return path;
    }
    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        return save(name, positionPicture(kSource, mark));
    }

    void tell(const char *command) const
    {
        EXPECT_FALSE(outputOf(u"swaymsg"_s, {QString::fromUtf8(command)}, m_sway->clientEnvironment()).isNull())
            << command;
    }

    /// Why the output does not come to show the picture with the mark; empty when it does.
    template <typename Sway>
    [[nodiscard]] static QString waitForPicture(const Sway &sway, const QString &output, int mark)
    {
        QString difference;
        (void)waitFor(
            [&] { return (difference = differenceFromFill(sway.screenshot(output), kSource, mark)).isEmpty(); });
        return difference;
    }
    [[nodiscard]] QString waitForBoth(int mark) const
    {
        return waitForPicture(*m_sway, kFirst, mark) + waitForPicture(*m_sway, kSecond, mark);
    }

    PrivateHome m_home;
    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<DesktopPictureLayerShell> m_desktop;
};

} // namespace quorvane
