#pragma once

#include "Platform/Desktops/DesktopPictureX11.h"

#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <xcb/xcb.h>

namespace quorvane {

using namespace Qt::StringLiterals;

constexpr QSize kRoot(1200, 700);
constexpr QRect kLeft(0, 0, 800, 450);
constexpr QRect kRight(800, 100, 400, 600);
constexpr QSize kSource(1200, 1000);

class DesktopPictureX11Test : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = PrivateXServer::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
    }

    void start(int depth = 24, const QStringList &options = {})
    {
        m_server = std::make_unique<PrivateXServer>(kRoot, depth, options);
        ASSERT_TRUE(m_server->isReady());
        m_desktop = std::make_unique<DesktopPictureX11>(m_server->display(), QString());
    }

    void startWithTwoMonitors(int depth = 24)
    {
        start(depth);
        ASSERT_TRUE(m_server->addMonitor(u"LEFT"_s, kLeft));
        ASSERT_TRUE(m_server->addMonitor(u"RIGHT"_s, kRight));
    }

    QString save(const QString &name, int mark, QSize size = kSource)
    {
        const QString path = m_home.path() + '/'_L1 + name;
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(positionPicture(size, mark).save(path, "png"));
        return path;
    }

    /// Why the image is not the picture with the mark on both monitors; empty when it is.
    static QString differenceOn(const QImage &root, int mark)
    {
        if (root.size() != kRoot) {
            return u"no picture of the root window's size"_s;
        }
        return differenceFromFill(root.copy(kLeft), kSource, mark) +
               differenceFromFill(root.copy(kRight), kSource, mark);
    }

    /// The same for everything that has to show it: the root window and both announced pixmaps.
    QString differenceEverywhere(int mark)
    {
        return differenceOn(m_server->rootWindow(), mark) + differenceOn(announced("_XROOTPMAP_ID"), mark) +
               differenceOn(announced("ESETROOT_PMAP_ID"), mark);
    }

    QImage announced(const char *property) { return m_server->pixelsOf(m_server->announcedPixmap(property)); }

    PrivateHome m_home;
    std::unique_ptr<PrivateXServer> m_server;
    std::unique_ptr<DesktopPictureX11> m_desktop;
};

} // namespace quorvane
