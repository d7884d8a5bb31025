#pragma once

#include <QFont>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace quorvane {

/// Runs the tests with an application of that type, as a desktop without display, graphics card and session.
template <typename Application> int runUiTests(int argc, char **argv)
{
    using namespace Qt::StringLiterals;

    testing::InitGoogleTest(&argc, argv);
    // The windows are drawn into memory.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    // What the windows look like is up to the test.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const Application application(argc, argv);
    // The same on every machine that has it.
    QFont font(u"DejaVu Sans"_s);
    font.setPointSize(10);
    QGuiApplication::setFont(font);
    return RUN_ALL_TESTS();
}

} // namespace quorvane
