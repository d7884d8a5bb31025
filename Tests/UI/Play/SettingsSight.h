#pragma once

#include "UI/Play/Sight.h"

#include <QMap>

namespace quorvane {

/// The settings beside the main window: what is done in them, and what they show against what the files say. Every
/// deed gives what went wrong in the doing itself.
class SettingsSight : public Sight
{
  protected:
    [[nodiscard]] bool areSettingsOpen() const { return m_settings != nullptr; }
    /// Brings the window to the front, as a user does who works in it.
    static void turnTo(QQuickWindow *window);
    /// The same, and opens it before where it is not open. Who does so no longer types elsewhere.
    void turnToSettings();

    [[nodiscard]] QString typeKey(quint32 number);
    [[nodiscard]] QString saveKey(quint32 number);
    [[nodiscard]] QString removeKey(quint32 number);
    [[nodiscard]] QString chooseProvider(quint32 number);
    [[nodiscard]] QString chooseMethod(quint32 number);
    [[nodiscard]] QString chooseModel(quint32 number);
    [[nodiscard]] QString closeSettings(quint32 number);

    [[nodiscard]] QString settingsDiffer() const;

    bool m_isTyping = false; ///< The editor holds what the user wrote, and has had the keyboard since.

  private:
    [[nodiscard]] QQuickItem *inSettings(const QString &name) const;
    [[nodiscard]] bool isShown(const QString &name) const { return inSettings(name) != nullptr; }
    /// Opens the settings at the tab with that button.
    void turnToTab(const QString &button);
    bool press(QQuickItem *item);
    [[nodiscard]] QString choose(const QString &row, quint32 number);
    [[nodiscard]] QString keysDiffer() const;
    [[nodiscard]] QString choicesDiffer() const;

    std::unique_ptr<QQuickWindow> m_settings;
    QMap<QString, QString> m_typed; ///< What was typed into a key's field and is not saved, by service.
};

} // namespace quorvane
