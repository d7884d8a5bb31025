import QtQuick
import Quorvane.Views

/// A text that is shown letter by letter, for much of what is shown was written elsewhere: nothing in it is markup. It
/// begins where a line begins, whatever it is written in.
Text {
    horizontalAlignment: Text.AlignLeft
    color: Theme.text
    textFormat: Text.PlainText
}
