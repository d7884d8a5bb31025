#pragma once

#include "Platform/Failure.h"

#include <QString>
#include <QVariantMap>

#include <memory>

namespace quorvane {

/// The settings of one schema, as the GTK desktops keep them (GSettings). For one thread; GSettings knows no time
/// limit, so it is used inside withinLimit().
class SettingsGroup
{
  public:
    /// Whether the schema is installed. Asks neither the bus nor the settings.
    [[nodiscard]] static bool isInstalled(const QString &schema);

    /// Look at usable() before anything else.
    explicit SettingsGroup(const QString &schema);
    ~SettingsGroup();
    SettingsGroup(const SettingsGroup &) = delete;
    SettingsGroup &operator=(const SettingsGroup &) = delete;
    SettingsGroup(SettingsGroup &&) = delete;
    SettingsGroup &operator=(SettingsGroup &&) = delete;

    /// Fails where there is no schema, no bus, or nowhere to keep the settings.
    [[nodiscard]] Result<> usable() const { return m_usable; }

    [[nodiscard]] bool hasKey(const QString &key) const;

    /// The value of a key that is a text.
    [[nodiscard]] QString text(const QString &key) const;

    /// Changes all values (texts, names of an enumeration, truths) at once, so that nobody sees some old and some new,
    /// and waits until they are kept. Fails in the words of what refused.
    [[nodiscard]] Result<> change(const QVariantMap &values);

  private:
    struct Glib;
    std::unique_ptr<Glib> m_glib;
    QString m_schema;
    Result<> m_usable;
};

} // namespace quorvane
