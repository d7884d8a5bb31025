#pragma once

#include "Views/Preview/PreviewModel.h"

#include <QKeyEvent>
#include <QPointer>
#include <QQuickWindow>

namespace quorvane {

/// The keys of the open preview: Escape, Left and Right belong to it whatever has the focus in the window, with any
/// modifier. Only a menu or a list that has dropped down keeps them.
class PreviewKeys : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(quorvane::PreviewModel *model MEMBER m_model REQUIRED)
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged)
    Q_PROPERTY(bool mirrored MEMBER m_isMirrored)

  public:
    using QObject::QObject;

    /// The window that is watched; none is null.
    [[nodiscard]] QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

  Q_SIGNALS:
    void windowChanged();

  private:
    [[nodiscard]] bool takes(int key) const;
    void obey(int key) const;

    QPointer<PreviewModel> m_model;
    QPointer<QQuickWindow> m_window;
    bool m_isMirrored = false; ///< Whether the next picture lies to the left.
};

} // namespace quorvane
