#pragma once

#include "Platform/Desktops/DesktopPictureCommand.h"

#include "Platform/Desktops/DesktopPictureUnimplemented.h"
#include "Support/PrivateHome.h"

#include <QFile>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

class TwoScreens : public DesktopPictureUnimplemented
{
  public:
    TwoScreens()
        : DesktopPictureUnimplemented(QString())
    {
    }
    [[nodiscard]] QList<Screen> screens() override { return {{u"DP-1"_s, QSize(10, 10)}, {u"DP-2"_s, QSize(20, 20)}}; }
};

class DesktopPictureCommandTest : public testing::Test
{
  protected:
    /// A program of the user's: a real script for /bin/sh, in a folder with a space in its name.
    QString script(const QByteArray &text)
    {
        const QString folder = m_home.path() + u"/my scripts"_s;
        QDir().mkpath(folder);
        QFile file(folder + u"/set it.sh"_s);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nhere='" + QFile::encodeName(m_home.path()) + "'\n" + text);
        file.close();
        EXPECT_TRUE(file.setPermissions(file.permissions() | QFile::ExeOwner));
        return file.fileName();
    }

    Result<> set(const QString &program, const QString &path = u"/picture.png"_s,
                 std::chrono::milliseconds limit = std::chrono::seconds(20))
    {
        DesktopPictureCommand desktop(program, QString(), std::make_unique<TwoScreens>(), limit);
        return desktop.setPicture(path, desktop.screens());
    }

    QByteArray content(const char *name)
    {
        QFile file(m_home.path() + '/'_L1 + QString::fromUtf8(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }

    PrivateHome m_home;
};

} // namespace quorvane
