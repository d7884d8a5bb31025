#pragma once

#include <QHash>
#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QtQml/qqml.h>

namespace quorvane {

/// Tells keys that are pressed from keys that are held, whatever has the focus in the window: what cannot be undone is
/// done once for each stroke.
class KeyStrokes : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged)

  public:
    using QObject::QObject;

    /// The window that is watched; none is null.
    [[nodiscard]] QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);

    /// Whether the last key that went down in the window had been down before: its repetition, not a stroke.
    [[nodiscard]] Q_INVOKABLE bool isRepeat() const { return m_isRepeat; }

    /// Takes one event of the keyboard; they come in their order.
    void note(const QKeyEvent &event);

    bool eventFilter(QObject *watched, QEvent *event) override;

  Q_SIGNALS:
    void windowChanged();
    /// A key has gone down, or repeats, whatever becomes of it.
    void keyPressed();

  private:
    struct Key
    {
        bool isDown = false;
        quint64 changed = 0; ///< When it went down or up; QKeyEvent::timestamp().
    };

    QPointer<QQuickWindow> m_window;
    QHash<int, Key> m_keys; ///< By Qt::Key; those of which anything has been heard.
    bool m_isRepeat = false;
};

} // namespace quorvane
