#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>

#include <optional>

namespace quorvane {

/// A service's answer as a JSON object whose very long texts (the picture) stay where they are in the answer's bytes
/// instead of being copied into the document.
class AnswerDocument
{
  public:
    /// Nothing when answer is not JSON or its top level is no object.
    [[nodiscard]] static std::optional<AnswerDocument> parse(QByteArray answer);

    [[nodiscard]] const QJsonObject &object() const { return m_object; }

    /// A text of object() in UTF-8; value must be a text. The view holds as long as this document and storage live.
    [[nodiscard]] QByteArrayView textOf(const QJsonValue &value, QByteArray *storage) const;

  private:
    QByteArray m_answer;
    QJsonObject m_object;
    QByteArray m_mark;                 ///< Begins each stand-in; random, so that no answer can hold one.
    QList<QByteArrayView> m_longTexts; ///< Into m_answer, by the number behind the mark.
};

} // namespace quorvane
