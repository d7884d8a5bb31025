#pragma once

class QQmlEngine;

namespace quorvane {

/// Makes the QML module Quorvane.Views and the pictures it shows known to engine. Once per engine, before the first
/// window is loaded: qrc:/qt/qml/Quorvane/Views/MainWindow.qml and SettingsWindow.qml, each a Window with the required
/// property "manager", the WallpaperManager that it shows.
void installViews(QQmlEngine *engine);

} // namespace quorvane
