#pragma once

#include "Support/Desktop/LoginSession.h"

#include "Platform/System/SystemAppearance.h"

#include <QDBusMetaType>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

class SystemAppearanceTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = whyNoBus();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString();
        }
        qDBusRegisterMetaType<PortalSettings>();
        ASSERT_TRUE(session.startBus());
        qputenv("DBUS_SESSION_BUS_ADDRESS", session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s).toLocal8Bit());
    }
    ~SystemAppearanceTest() override { qunsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    LoginSession session;
};

} // namespace quorvane
