#include "Views/Keyboard/KeyStrokes.h"

// The idea: an X server repeats a held key as a release and a press that carry the same time. Qt marks the pair as a
// repetition only when the press has arrived already while it looks at the release, which is rarely so. The times tell
// every pair: nobody lets a key go and presses it again within a hundredth of a second, which is also how much later Qt
// itself takes a press for the other half of a release. Where a system marks repetitions, the mark is enough.
//
// Not taken: waiting for a moment after each release whether a press follows. It would need a timer, and every stroke
// would be obeyed late.

namespace quorvane {

namespace {

constexpr quint64 kPairMilliseconds = 10;

} // namespace

void KeyStrokes::setWindow(QQuickWindow *window)
{
    if (window == m_window) {
        return;
    }
    if (m_window) {
        m_window->removeEventFilter(this);
    }
    m_window = window;
    m_keys.clear();
    if (m_window) {
        m_window->installEventFilter(this);
    }
    Q_EMIT windowChanged();
}

void KeyStrokes::note(const QKeyEvent &event)
{
    Key &key = m_keys[event.key()];
    const quint64 time = event.timestamp();
    if (event.type() == QEvent::KeyRelease) {
        key = {.isDown = false, .changed = time};
        return;
    }
    // The question whether it is a shortcut comes before the press itself, with the same time, and is one stroke with
    // it.
    const bool isSameStroke = key.isDown && key.changed == time;
    if (!isSameStroke) {
        const bool followsRelease = key.changed != 0 && time - key.changed <= kPairMilliseconds;
        m_isRepeat = event.isAutoRepeat() || key.isDown || followsRelease;
    }
    key = {.isDown = true, .changed = time};
}

bool KeyStrokes::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // All there is of a shortcut.
    case QEvent::KeyPress:
        note(*static_cast<QKeyEvent *>(event));
        Q_EMIT keyPressed();
        break;
    case QEvent::KeyRelease:
        note(*static_cast<QKeyEvent *>(event));
        break;
    case QEvent::FocusOut:
        // What is let go elsewhere is never heard of here.
        m_keys.clear();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quorvane
