#pragma once

#include <QObject>
#include <QPointer>
#include <QQmlParserStatus>
#include <QQuickTextDocument>
#include <QtQml/qqml.h>

namespace quorvane {

/// The text of an editor, between its document and a model. What the model puts there replaces all of it in one step,
/// which the user can undo; an editor whose text is simply set forgets what was written in it.
class EditorText : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument REQUIRED)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

  public:
    using QObject::QObject;

    [[nodiscard]] QQuickTextDocument *document() const { return m_document; }
    void setDocument(QQuickTextDocument *document) { m_document = document; }

    /// To the letter what was set, as long as nobody edits it: a document turns some blanks and line ends into others.
    [[nodiscard]] const QString &text() const { return m_text; }
    void setText(const QString &text);

    void classBegin() override {}
    void componentComplete() override;

  Q_SIGNALS:
    void textChanged();
    /// The user wrote, pasted, undid.
    void edited(const QString &text);

  private:
    void show();
    void follow();

    QPointer<QQuickTextDocument> m_document;
    QString m_text;
    QString m_shown; ///< The text as the document gives it back.
    bool m_isComplete = false;
    bool m_isShowing = false; ///< The document is being changed from here.
};

} // namespace quorvane
