#include "Providers/ProviderError.h"

namespace quorvane {

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
        return QStringLiteral("Invalid response: ") + m_message;
    case Kind::ApiError:
        return QStringLiteral("API error: ") + m_message;
    case Kind::NetworkError:
        return QStringLiteral("Network error: ") + m_message;
    }
    return m_message;
}

const char *ProviderError::what() const noexcept
{
    return m_what.constData();
}

} // namespace quorvane
