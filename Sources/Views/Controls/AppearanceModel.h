#pragma once

#include "Platform/System/SystemAppearance.h"

#include <QObject>
#include <QtQml/qqml.h>

namespace quorvane {

/// How the system wants the windows to look, for the theme.
class AppearanceModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool prefersDark READ prefersDark NOTIFY changed)
    Q_PROPERTY(bool prefersLight READ prefersLight NOTIFY changed)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY changed)
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY changed)

  public:
    explicit AppearanceModel(QObject *parent = nullptr);

    /// Neither of the two where the system says nothing.
    [[nodiscard]] bool prefersDark() const;
    [[nodiscard]] bool prefersLight() const;
    [[nodiscard]] bool reducesMotion() const { return m_system.appearance().reducesMotion; }
    /// Whether text, and so everything else, goes from right to left.
    [[nodiscard]] static bool isRightToLeft();

  Q_SIGNALS:
    void changed();

  private:
    SystemAppearance m_system;
};

} // namespace quorvane
