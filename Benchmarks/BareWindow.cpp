// The least that a program with one window can be: what the application's figures are put beside. It opens its window
// at the start, and "close" and "open" on standard input do the same with the window and everything that made it.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSocketNotifier>

#include <iostream>
#include <memory>
#include <string>

namespace {

class BareWindow
{
  public:
    void open()
    {
        m_engine = std::make_unique<QQmlEngine>();
        QQmlComponent component(m_engine.get());
        component.setData("import QtQuick\nWindow { width: 960; height: 640; title: \"Bare\"; visible: true }", {});
        m_window.reset(component.create());
    }
    void close()
    {
        m_window.reset();
        m_engine.reset();
    }

  private:
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QObject> m_window;
};

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    BareWindow window;
    const QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &input, [&window] {
        std::string line;
        if (!std::getline(std::cin, line)) {
            QCoreApplication::quit();
        } else if (line == "open") {
            window.open();
        } else {
            window.close();
        }
    });
    window.open();
    return QCoreApplication::exec();
}
