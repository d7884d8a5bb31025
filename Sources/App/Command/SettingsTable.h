#pragma once

#include "Platform/Failure.h"

#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace quorvane {

class UserDefaults;
class WallpaperManager;

/// One setting, with everything that the command line must know about it.
struct Setting
{
    enum class Kind {
        Switch,  ///< true or false
        Minutes, ///< A whole number from 1 to the manager's longest interval.
        Choice,  ///< One of choices.
        Text,    ///< Any text.
        Picture  ///< The whole path of a file, or nothing.
    };

    QString key; ///< The name by which it is stored.
    Kind kind;
    QString initial;                             ///< What holds while nothing is stored.
    QStringList choices;                         ///< Of Kind::Choice.
    std::function<QJsonValue()> value;           ///< What holds now.
    std::function<void(const QString &)> change; ///< Takes a text of the kind's form, through the one who must know.
};

/// The settings as the command line shows and changes them. The manager and the store outlive it.
class SettingsTable
{
  public:
    SettingsTable(WallpaperManager &manager, UserDefaults &defaults);

    [[nodiscard]] const std::vector<Setting> &settings() const { return m_settings; }

    /// The setting of that name. Fails where there is none.
    [[nodiscard]] Result<Setting> find(const QString &key) const;

    /// Changes one setting, with everything that a change of it entails. Fails where the key or the text makes no
    /// sense. It is in force then, but perhaps not kept yet.
    Result<> set(const QString &key, const QString &text);

    /// Goes back to what holds while nothing is stored.
    Result<> unset(const QString &key);

  private:
    UserDefaults &m_defaults;
    std::vector<Setting> m_settings;
};

} // namespace quorvane
