#pragma once

#include "Platform/Failure.h"

#include <QByteArray>
#include <QString>

#include <exception>

namespace quorvane {

/// An exception whose text is for people. Its words are whole, while what() ends where others put a zero character.
class DescribedError : public std::exception
{
  public:
    explicit DescribedError(QString words);

    [[nodiscard]] const QString &words() const { return m_words; }

    /// words() in UTF-8, as far as the first zero character.
    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

  private:
    QString m_words;
    QByteArray m_utf8;
};

/// What went wrong: the words of a DescribedError, else what(); that there is not enough memory, where an allocation
/// failed. An exception without a text is a failure, too, and says that its reason is not known.
[[nodiscard]] Failure failureOf(const std::exception &error);

} // namespace quorvane
