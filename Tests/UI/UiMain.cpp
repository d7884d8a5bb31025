#include <QFont>
#include <QGuiApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    // No display, no graphics card: the windows are drawn into memory.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    // No session either: what the windows look like is up to the test.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const QGuiApplication application(argc, argv);
    // The same on every machine that has it.
    QFont font(u"DejaVu Sans"_s);
    font.setPointSize(10);
    QGuiApplication::setFont(font);
    return RUN_ALL_TESTS();
}
