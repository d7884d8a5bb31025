#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QRect>
#include <QSet>
#include <QString>
#include <QVariantList>

#include <optional>

namespace quorvane {

/// What assistive technology is told of one element of a window.
struct AccessibleElement
{
    /// As AT-SPI numbers them.
    enum State { Checked = 4, Editable = 7, Enabled = 8, Focusable = 11, Focused = 12, Showing = 25 };

    QString bus;
    QString path;
    QString role;
    QString name;
    QString description;
    QString text; ///< Of what has one.
    QSet<int> states;

    [[nodiscard]] bool has(State state) const { return states.contains(state); }
};

/// Reads windows as a screen reader does: over AT-SPI's own bus.
class AccessibleTree
{
  public:
    /// The path of the program that starts AT-SPI in a session; empty where it is not installed.
    [[nodiscard]] static QString launcher();

    /// session is a bus on which the launcher runs or will run.
    explicit AccessibleTree(QDBusConnection session);
    ~AccessibleTree();
    AccessibleTree(const AccessibleTree &) = delete;
    AccessibleTree &operator=(const AccessibleTree &) = delete;

    /// Where AT-SPI's bus is, all events of which are sent from now on; empty where it does not run.
    [[nodiscard]] QString addressOfEvents();

    /// Everything that every program shows now.
    [[nodiscard]] QList<AccessibleElement> elements();

    /// The element of that role and name that shows, if there is one.
    [[nodiscard]] std::optional<AccessibleElement> find(const QString &role, const QString &name);

    /// Where it is on the screen.
    [[nodiscard]] QRect areaOf(const AccessibleElement &element) const;

    /// Does what the element does first: presses a button.
    [[nodiscard]] bool press(const AccessibleElement &element) const;

  private:
    [[nodiscard]] bool connectToBus();
    [[nodiscard]] QVariantList call(const QString &bus, const QString &path, const char *interface, const char *method,
                                    const QVariantList &arguments = {}) const;
    [[nodiscard]] QString property(const QString &bus, const QString &path, const char *name) const;
    void collect(const QString &bus, const QString &path, int depth, QList<AccessibleElement> *found) const;

    QDBusConnection m_session;
    QString m_address;
    QString m_name;
};

} // namespace quorvane
