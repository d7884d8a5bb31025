#include "Platform/DescribedError.h"

#include <QCoreApplication>

#include <new>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DescribedError)
};

} // namespace

DescribedError::DescribedError(QString words)
    : m_words(std::move(words))
    , m_utf8(m_words.toUtf8())
{
}

Failure failureOf(const std::exception &error)
{
    if (dynamic_cast<const std::bad_alloc *>(&error) != nullptr) {
        return {Tr::tr("There is not enough memory.")};
    }
    const auto *described = dynamic_cast<const DescribedError *>(&error);
    QString words = described != nullptr ? described->words() : QString::fromUtf8(error.what());
    if (words.isEmpty()) {
        words = Tr::tr("The reason is not known.");
    }
    return {std::move(words)};
}

} // namespace quorvane
