#pragma once

#include "App/Command/CommandLine.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

namespace quorvane {

class SessionBus;
struct Services;

/// The running application on the session bus: the one instance, because it owns the name, and its object there, which
/// offers org.freedesktop.Application and app.quorvane.Quorvane1, as the XML files beside this one describe them.
class ControlService : public QObject, protected QDBusContext
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
    /// environment, and waits for its answer. A Failure holds its words, or the bus's when it gave none.
    [[nodiscard]] Result<> activateOther();

    /// Asks the application that owns the name for an action of the desktop entry, like activateOther().
    [[nodiscard]] Result<> actOther(const QString &action);

    /// Does what that action of the desktop entry does. Only while it serves.
    void act(const QString &action, const QString &token);

    /// Begins to serve. The services lives until release().
    void serve(Services &services);

    /// Serves no more, and lets go of the name, so that the next start is the application.
    void release();

    // What is called over the bus, under the names of the interfaces. The answer comes later, so nothing is returned
    // here.
    void Activate(const QVariantMap & /*platformData*/) { take(); }
    void Open(const QStringList & /*uris*/, const QVariantMap & /*platformData*/) { take(); }
    void ActivateAction(const QString & /*action*/, const QVariantList & /*parameter*/, const QVariantMap & /*data*/)
    {
        take();
    }
    QString Generate(const QVariantMap & /*options*/) { return take(); }
    QString Upscale(const QString & /*file*/) { return take(); }
    QString Set(const QString & /*file*/) { return take(); }
    QString Favorite(const QString & /*file*/) { return take(); }
    QString Delete(const QString & /*file*/) { return take(); }
    QString Auto(bool /*enabled*/) { return take(); }
    QString Autostart(bool /*enabled*/) { return take(); }
    QString Settings() { return take(); }
    QString Setting(const QString & /*key*/) { return take(); }
    QString SetSetting(const QString & /*key*/, const QString & /*value*/) { return take(); }
    QString UnsetSetting(const QString & /*key*/) { return take(); }
    QString ListKeys() { return take(); }
    QString SetKey(const QString & /*service*/, const QString & /*key*/) { return take(); }
    QString DeleteKey(const QString & /*service*/) { return take(); }
    QString History() { return take(); }
    QString Albums() { return take(); }
    QString Status() { return take(); }
    QString Model() { return take(); }
    QString InstallModel(const QString & /*file*/) { return take(); }
    QString Cancel() { return take(); }
    QString Quit() { return take(); }

  Q_SIGNALS:
    void activated(const QString &token);
    void settingsAsked(const QString &token);
    void quitAsked();

    /// A command was carried out that changes what no signal of the manager tells: keys, prompt.
    void changed();

  private:
    QString take();
    void answer(const QDBusMessage &call);
    void answerApplication(const QDBusMessage &call);
    void answerOperation(const QDBusMessage &call);
    void run(const CommandLine &line, const QDBusMessage &call);
    void announce(const QVariantMap &changed);
    [[nodiscard]] QVariantMap properties() const;
    [[nodiscard]] bool exportAndRequest();
    [[nodiscard]] Result<> askOther(const QString &method, QVariantList arguments);

    SessionBus &m_bus;
    Services *m_services = nullptr;
    bool m_isServing = false;
    QList<QDBusMessage> m_early; ///< What was asked before.
};

} // namespace quorvane
