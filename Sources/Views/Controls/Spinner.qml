import QtQuick
import Quorvane.Views

/// Turns while it is seen, unless the user wants no motion.
Symbol {
    id: spinner

    name: "spinner"
    Accessible.ignored: true

    RotationAnimator on rotation {
        running: spinner.visible && Theme.motion > 0
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
    }
}
