#pragma once

#include "Manager/MenuItems.h"
#include "Views/ViewModel.h"

namespace quorvane {

/// The menu of the panel's icon, for the window: it stands in for the icon where no panel shows one.
class MenuModel : public quorvane::ViewModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isNeeded READ isNeeded NOTIFY isNeededChanged)
    Q_PROPERTY(bool trayShown READ trayShown WRITE setTrayShown NOTIFY isNeededChanged)
    Q_PROPERTY(bool canGenerate READ canGenerate WRITE setCanGenerate NOTIFY changed)
    Q_PROPERTY(QString stateLine READ stateLine NOTIFY changed)
    Q_PROPERTY(QString generateText READ generateText CONSTANT)
    Q_PROPERTY(QString autoText READ autoText CONSTANT)
    Q_PROPERTY(QString settingsText READ settingsText CONSTANT)
    Q_PROPERTY(QString quitText READ quitText CONSTANT)
    Q_PROPERTY(bool autoEnabled READ autoEnabled NOTIFY changed)

  public:
    using ViewModel::ViewModel;

    /// Whether a panel shows the icon, and with it the menu.
    [[nodiscard]] bool trayShown() const { return m_isTrayShown; }
    void setTrayShown(bool isShown);
    [[nodiscard]] bool isNeeded() const { return !m_isTrayShown; }

    /// Whether a generation may be started now; the sidebar knows.
    [[nodiscard]] bool canGenerate() const { return m_canGenerate; }
    void setCanGenerate(bool can);

    [[nodiscard]] QString stateLine() const;
    [[nodiscard]] static QString generateText() { return textOf(MenuItem::GenerateNow); }
    [[nodiscard]] static QString autoText() { return textOf(MenuItem::AutoGenerate); }
    [[nodiscard]] static QString settingsText() { return textOf(MenuItem::Settings); }
    [[nodiscard]] static QString quitText() { return textOf(MenuItem::Quit); }
    [[nodiscard]] bool autoEnabled() const;

    /// Does nothing unless canGenerate().
    Q_INVOKABLE void generate();
    Q_INVOKABLE void toggleAuto();

  Q_SIGNALS:
    void isNeededChanged();
    void changed();

  private:
    void attach() override;
    [[nodiscard]] static QString textOf(MenuItem::Id id);

    bool m_isTrayShown = true;
    bool m_canGenerate = false;
};

} // namespace quorvane
