// The program with windows that only tell what becomes of them, and with a keyboard: each line of standard input, for
// example "Ctrl+Q", is pressed in a window that is open.

#include "App/Program.h"

#include <QGuiApplication>
#include <QKeySequence>
#include <QSocketNotifier>
#include <QTest>

#include <iostream>
#include <string>

namespace {

void pressNext()
{
    std::string line;
    if (!std::getline(std::cin, line)) {
        return;
    }
    const QKeyCombination keys = QKeySequence::fromString(QString::fromStdString(line))[0];
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->isVisible()) {
            QTest::keyPress(window, keys.key(),
                            keys.keyboardModifiers()); // The window may not live to see the release.
            return;
        }
    }
}

void listen()
{
    auto *notifier = new QSocketNotifier(0, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] { pressNext(); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(listen)

int main(int argc, char **argv)
{
    const QString folder = qEnvironmentVariable("TEST_WINDOWS");
    return quorvane::runProgram(argc, argv,
                                {QUrl::fromLocalFile(folder + QStringLiteral("/MainWindow.qml")),
                                 QUrl::fromLocalFile(folder + QStringLiteral("/SettingsWindow.qml")),
                                 {}});
}
