#include "Views/Sidebar/EditorText.h"

#include <QTextCursor>
#include <QTextDocument>

namespace quorvane {

void EditorText::componentComplete()
{
    m_isComplete = true;
    show();
    // There is nothing before the first text.
    m_document->textDocument()->clearUndoRedoStacks();
    connect(m_document->textDocument(), &QTextDocument::contentsChanged, this, &EditorText::follow);
}

void EditorText::setText(const QString &text)
{
    if (text == m_text) {
        return;
    }
    m_text = text;
    if (m_isComplete && m_document != nullptr) {
        show();
    }
    Q_EMIT textChanged();
}

void EditorText::show()
{
    QTextDocument *document = m_document->textDocument();
    m_isShowing = true;
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(m_text);
    cursor.endEditBlock();
    // What is typed behind it is taken back by itself: a document that was modified adds it to the last step.
    document->setModified(false);
    m_isShowing = false;
    m_shown = document->toPlainText();
}

void EditorText::follow()
{
    if (m_isShowing) {
        return;
    }
    // A document also tells of changes that are none of its text: of the layout, and of what an input method composes.
    const QString shown = m_document->textDocument()->toPlainText();
    if (shown != m_shown) {
        m_shown = shown;
        m_text = shown;
        Q_EMIT textChanged();
        Q_EMIT edited(m_text);
    }
}

} // namespace quorvane
