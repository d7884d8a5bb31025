#pragma once

#include "App/Command/CommandLine.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace quorvane {

class SessionBus;
struct Services;

/// The running application on the session bus: the one instance, because it owns the name, and its object there, which
/// offers org.freedesktop.Application and the operations and properties of Control::introspectionXml().
class ControlService : public QDBusVirtualObject
{
    Q_OBJECT

  public:
    explicit ControlService(SessionBus &bus, QObject *parent = nullptr);

    enum class Claim {
        Owned, ///< This process is the application.
        Taken, ///< Another process is.
        NoBus
    };
    /// Exports the object and asks for the name. Calls are answered from the next turn of the event loop.
    [[nodiscard]] Claim claim();

    /// Asks the application that owns the name to show its window, with the activation token of this process's
    /// environment, and waits for its answer. False when it gave none.
    [[nodiscard]] bool activateOther();

    /// Asks the application that owns the name for an action of the desktop entry, like activateOther().
    [[nodiscard]] bool actOther(const QString &action);

    /// Does what that action of the desktop entry does. Only while it serves.
    void act(const QString &action, const QString &token);

    /// Begins to serve. The services lives until release().
    void serve(Services &services);

    /// Serves no more, and lets go of the name, so that the next start is the application.
    void release();

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  Q_SIGNALS:
    void activated(const QString &token);
    void settingsAsked(const QString &token);
    void quitAsked();

    /// A command was carried out that changes what no signal of the manager tells: keys, prompt.
    void changed();

  private:
    void answerApplication(const QDBusMessage &message, const QDBusConnection &connection);
    void answerOperation(const QDBusMessage &message, const QDBusConnection &connection);
    void run(const CommandLine &line, const QDBusMessage &message, const QDBusConnection &connection);
    void quit(const QDBusMessage &message, const QDBusConnection &connection);
    void announce(const QString &property);
    [[nodiscard]] QVariantMap properties() const;
    [[nodiscard]] bool exportAndRequest();
    [[nodiscard]] bool askOther(const QString &method, QVariantList arguments);

    SessionBus &m_bus;
    Services *m_services = nullptr;
    bool m_isServing = false;
    QList<QDBusMessage> m_early; ///< What was asked before.
};

} // namespace quorvane
