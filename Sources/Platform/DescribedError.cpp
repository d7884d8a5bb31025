#include "Platform/DescribedError.h"

#include <QCoreApplication>

namespace quorvane {

DescribedError::DescribedError(QString words)
    : m_words(std::move(words))
    , m_utf8(m_words.toUtf8())
{
}

Failure failureOf(const std::exception &error)
{
    const auto *described = dynamic_cast<const DescribedError *>(&error);
    QString words = described != nullptr ? described->words() : QString::fromUtf8(error.what());
    if (words.isEmpty()) {
        words = QCoreApplication::translate("DescribedError", "The reason is not known.");
    }
    return {std::move(words)};
}

} // namespace quorvane
