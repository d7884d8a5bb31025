#include "Providers/ProviderError.h"

#include <QCoreApplication>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ProviderError)
};

} // namespace

ProviderError::ProviderError(Kind kind, QString message)
    : m_kind(kind)
    , m_message(std::move(message))
    , m_what(errorDescription().toUtf8())
{
}

ProviderError ProviderError::invalidResponse(const QString &message)
{
    return {Kind::InvalidResponse, message};
}

ProviderError ProviderError::apiError(const QString &message)
{
    return {Kind::ApiError, message};
}

ProviderError ProviderError::networkError(const QString &description)
{
    return {Kind::NetworkError, description};
}

QString ProviderError::errorDescription() const
{
    switch (m_kind) {
    case Kind::InvalidResponse:
        return Tr::tr("Invalid response: %1").arg(m_message);
    case Kind::ApiError:
        return Tr::tr("API error: %1").arg(m_message);
    case Kind::NetworkError:
        return Tr::tr("Network error: %1").arg(m_message);
    }
    return m_message;
}

const char *ProviderError::what() const noexcept
{
    return m_what.constData();
}

} // namespace quorvane
