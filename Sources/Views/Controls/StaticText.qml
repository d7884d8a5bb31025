import QtQuick
import Quorvane.Views

/// A plain text that stands for itself, and so is read out; what is part of a control is told by that one's name.
PlainText {
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
