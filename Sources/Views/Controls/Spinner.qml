import QtQuick
import Quorvane.Views

/// Turns while it is seen.
Symbol {
    id: spinner

    name: "spinner"
    Accessible.ignored: true

    RotationAnimator on rotation {
        running: spinner.visible
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
    }
}
