pragma Singleton

import QtQuick
import Quorvane.Views

/// Colours, type and measures: light or dark as the system says, or as its palette is where it says nothing, and at
/// once when that changes.
QtObject {
    readonly property SystemPalette palette: SystemPalette {}
    readonly property AppearanceModel system: AppearanceModel {}
    readonly property bool dark: system.prefersDark || (!system.prefersLight && palette.window.hslLightness < 0.5)

    readonly property color page: dark ? "#17171b" : "#fafafb"
    readonly property color sidebar: dark ? "#1f1f25" : "#f0f0f4"
    readonly property color surface: dark ? "#2a2a32" : "#ffffff"
    readonly property color surfaceHovered: dark ? "#34343d" : "#f3f3f6"
    readonly property color surfacePressed: dark ? "#3d3d47" : "#e8e8ed"
    readonly property color placeholder: dark ? "#25252c" : "#e9e9ee"
    readonly property color separator: dark ? "#3a3a44" : "#d9d9e0"
    readonly property color text: dark ? "#f2f2f5" : "#1c1c22"
    readonly property color secondaryText: dark ? "#a3a3b0" : "#656570"
    readonly property color accent: dark ? "#7c93ff" : "#4259d6"
    readonly property color accentHovered: dark ? "#8ea2ff" : "#3a50c6"
    readonly property color accentPressed: dark ? "#6b83f5" : "#3246b3"
    readonly property color accentText: dark ? "#0e1020" : "#ffffff"
    readonly property color orange: dark ? "#ffae5c" : "#a85200"
    readonly property color red: dark ? "#ff7b80" : "#c8232f"
    readonly property color green: dark ? "#5bd08a" : "#1b7f45"
    readonly property color yellow: "#ffcc33"
    readonly property color switchTrack: dark ? "#4a4a55" : "#c9c9d2"
    readonly property color switchKnob: "#ffffff"

    /// How dark a shadow is at its darkest.
    readonly property real shadow: dark ? 0.42 : 0.16

    // On pictures and on the dark backdrop, whatever the theme.
    readonly property color backdrop: "#101014"
    readonly property color glass: "#b31a1a20"
    readonly property color glassHovered: "#d933333c"
    readonly property color glassEdge: "#26ffffff"
    readonly property color glassTrack: "#40ffffff"
    readonly property color glassRed: "#ff8a8e"
    readonly property color veil: "#99101014"
    readonly property color fullScreen: "#000000"
    readonly property color overPicture: "#ffffff"
    readonly property color overPictureSecondary: "#c4c4cc"

    readonly property int titleSize: 20
    readonly property int bodySize: 14
    readonly property int captionSize: 12

    /// How long a change takes to be seen, in milliseconds; nothing moves where the user wants no motion.
    readonly property int motion: system.reducesMotion ? 0 : 140
}
