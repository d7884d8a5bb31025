#pragma once

#include "Support/Desktop/LoginSession.h"

#include "App/Tray/DBusMenu.h"
#include "Support/CommandRun.h"
#include "demo-service/DemoService.h"

#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <csignal>
#include <memory>

namespace quorvane {

using namespace Qt::StringLiterals;

/// One start of the application, ended with the object at the latest.
class Application
{
  public:
    Application(const QProcessEnvironment &environment, const QStringList &arguments,
                const QString &program = QStringLiteral(SHELL_PROGRAM));
    ~Application();
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    /// Waits until it has written text to standard error that many times.
    [[nodiscard]] bool says(const QByteArray &text, int times = 1);
    /// How many times it has written text so far.
    [[nodiscard]] int count(const QByteArray &text);
    [[nodiscard]] const QByteArray &errors() const { return m_errors; }
    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }
    [[nodiscard]] qint64 pid() const { return m_process.processId(); }
    /// Whether it ends, in whatever way.
    [[nodiscard]] bool ends();
    /// The exit status; -1 when it did not end by itself.
    [[nodiscard]] int waitForEnd();
    /// Keys for a window, time that passes, or a question: what ShellProgram takes.
    void tell(const QByteArray &line) { m_process.write(line + '\n'); }
    void signal(int number);

  private:
    QProcess m_process;
    QByteArray m_errors;
};

/// A panel: the watcher of tray icons, with a host.
class Panel : public QDBusVirtualObject
{
    Q_OBJECT

  public:
    explicit Panel(const QDBusConnection &bus);
    ~Panel() override;

    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    QStringList items; ///< What registered, in its order.

  private:
    QDBusConnection m_bus;
};

/// A notification daemon that keeps what it is asked to show.
class Daemon : public QDBusVirtualObject
{
    Q_OBJECT

  public:
    explicit Daemon(QDBusConnection bus);

    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    static constexpr quint32 kNumber = 7; ///< What every notice gets.

    QList<QVariantList> shown; ///< The arguments of each call.
    bool answers = true;
    QStringList capabilities{u"body"_s, u"body-markup"_s};
};

/// The program in a session of its own: home, bus, service, no display.
class ShellTest : public testing::Test
{
  protected:
    void SetUp() override;

    [[nodiscard]] std::unique_ptr<Application> start(const QStringList &arguments = {u"--hidden"_s});
    /// Until the application answers on the bus, with all that it has there.
    [[nodiscard]] bool isThere() const;
    /// start(), and waits until it answers on the bus.
    [[nodiscard]] std::unique_ptr<Application> startAndWait(const QStringList &arguments = {u"--hidden"_s});
    /// A command, while the test's own objects on the bus answer.
    [[nodiscard]] CommandRun command(const QStringList &arguments, const QByteArray &input = {});

    [[nodiscard]] bool isOnBus() const;
    /// A property of the application.
    [[nodiscard]] QVariant property(const QString &name) const;
    [[nodiscard]] QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                                    const QVariantList &arguments) const;
    /// The menu as a panel reads it.
    [[nodiscard]] QList<DBusMenuLayout> menu() const;
    /// What one item of it has under that name.
    [[nodiscard]] QVariant menuProperty(MenuItem::Id id, const QString &name) const;
    void click(MenuItem::Id id) const;

    LoginSession session;
    DemoService service;
};

} // namespace quorvane
