#include "Providers/ProviderError.h"

#include <QCoreApplication>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ProviderError)
};

QString description(ProviderError::Kind kind, const QString &message)
{
    switch (kind) {
    case ProviderError::Kind::InvalidResponse:
        return Tr::tr("Invalid response: %1").arg(message);
    case ProviderError::Kind::ApiError:
        return Tr::tr("API error: %1").arg(message);
    case ProviderError::Kind::NetworkError:
        return Tr::tr("Network error: %1").arg(message);
    }
    return message;
}

} // namespace

ProviderError::ProviderError(Kind kind, QString message)
    : DescribedError(description(kind, message))
    , m_kind(kind)
    , m_message(std::move(message))
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

} // namespace quorvane
