#pragma once

#include "Platform/DescribedError.h"

#include <QString>

namespace quorvane {

/// Why an image service or an upscaler gave no picture. Thrown inside coroutines and shown to the user as the status
/// line.
class ProviderError : public DescribedError
{
  public:
    enum class Kind {
        InvalidResponse, ///< The answer (or the request's address) makes no sense.
        ApiError,        ///< The service said why in its own words.
        NetworkError     ///< No answer came; the message is the transport's description.
    };

    ProviderError(Kind kind, QString message);

    [[nodiscard]] static ProviderError invalidResponse(const QString &message);
    [[nodiscard]] static ProviderError apiError(const QString &message);
    [[nodiscard]] static ProviderError networkError(const QString &description);

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] const QString &message() const { return m_message; }

    /// The text the user reads: the kind's prefix and the message.
    [[nodiscard]] const QString &errorDescription() const { return words(); }

  private:
    Kind m_kind;
    QString m_message;
};

} // namespace quorvane
