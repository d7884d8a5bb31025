// The program with windows that only tell what becomes of them, and with what a test needs to act on it. Each line of
// standard input is one of
//   Ctrl+Q      keys, pressed in a window that is open
//   sleep 90    the clock goes on by so many seconds, and then what is due rings
//   end         may end, where TEST_SLOW_END has it wait for that
//   $NAME       the variable of the environment is told on standard error

#include "App/Application/Program.h"
#include "Support/TestClock.h"

#include <QGuiApplication>
#include <QKeySequence>
#include <QSocketNotifier>
#include <QTest>

#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): the program makes it, the test's lines move it
quorvane::TestClock *testClock = nullptr;

void press(const QString &text)
{
    const QKeyCombination keys = QKeySequence::fromString(text)[0];
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->isVisible()) {
            QTest::keyPress(window, keys.key(),
                            keys.keyboardModifiers()); // The window may not live to see the release.
            return;
        }
    }
}

void obeyNext()
{
    std::string text;
    if (!std::getline(std::cin, text)) {
        return;
    }
    const QString line = QString::fromStdString(text);
    if (line.startsWith("sleep "_L1)) {
        testClock->pass(std::chrono::seconds(line.mid(6).toInt()));
    } else if (line.startsWith('$'_L1)) {
        const QByteArray value = qgetenv(line.mid(1).toLocal8Bit().constData());
        std::cerr << text << '=' << value.constData() << std::endl;
    } else {
        press(line);
    }
}

void listen()
{
    auto *notifier = new QSocketNotifier(0, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] { obeyNext(); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(listen)

namespace quorvane {

// In place of the machine's clock, which the linker then leaves out.
std::unique_ptr<Clock> makeSystemClock()
{
    auto clock = std::make_unique<TestClock>();
    testClock = clock.get();
    return clock;
}

} // namespace quorvane

int main(int argc, char **argv)
{
    const QString folder = qEnvironmentVariable("TEST_WINDOWS");
    const int status = quorvane::runProgram(argc, argv,
                                            {QUrl::fromLocalFile(folder + u"/TellingMainWindow.qml"_s),
                                             QUrl::fromLocalFile(folder + u"/TellingSettingsWindow.qml"_s),
                                             {}});
    for (std::string line; qEnvironmentVariableIsSet("TEST_SLOW_END") && line != "end";) {
        if (!std::getline(std::cin, line)) {
            break;
        }
    }
    return status;
}
