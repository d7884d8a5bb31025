#pragma once

#include <QDateTime>
#include <QList>
#include <QLocale>
#include <QString>

namespace quorvane {

/// What the menu depends on.
struct MenuState
{
    bool isLoading = false;
    QDateTime nextFireDate = {}; ///< Invalid while nothing is due.
    bool autoEnabled = false;
    bool hasPrompt = false;
    bool hasKeys = false; ///< No key that a generation needs is missing.
};

/// One line of the menu. The number names it for as long as the program runs.
struct MenuItem
{
    enum class Kind { Text, Divider, Button, Toggle };
    enum Id {
        StateLine = 1,
        AboveActions,
        GenerateNow,
        AutoGenerate,
        AboveWindows,
        OpenWindow,
        Settings,
        AboveQuit,
        Quit
    };

    Id id;
    Kind kind;
    QString text;
    bool isEnabled = true;
    bool isChecked = false;

    friend bool operator==(const MenuItem &, const MenuItem &) = default;
};

/// "Generating...", "Next: " and the time of day, or "Idle".
[[nodiscard]] QString stateLine(const MenuState &state, const QLocale &locale);

/// The menu from top to bottom.
[[nodiscard]] QList<MenuItem> menuItems(const MenuState &state, const QLocale &locale);

} // namespace quorvane
