#include "Views/Controls/AppearanceModel.h"

#include <QGuiApplication>

namespace quorvane {

AppearanceModel::AppearanceModel(QObject *parent)
    : QObject(parent)
{
    connect(&m_system, &SystemAppearance::changed, this, &AppearanceModel::changed);
    connect(qGuiApp, &QGuiApplication::layoutDirectionChanged, this, &AppearanceModel::changed);
}

bool AppearanceModel::prefersDark() const
{
    return m_system.appearance().colorScheme == Appearance::ColorScheme::Dark;
}

bool AppearanceModel::prefersLight() const
{
    return m_system.appearance().colorScheme == Appearance::ColorScheme::Light;
}

bool AppearanceModel::isRightToLeft()
{
    return QGuiApplication::isRightToLeft();
}

} // namespace quorvane
