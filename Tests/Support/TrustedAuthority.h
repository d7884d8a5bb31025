#pragma once

#include <QFile>
#include <QSslCertificate>
#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <optional>

namespace quorvane {

/// Makes this program's clients trust the authority, and no other, for as long as it lives. A client reads what it
/// trusts with its first request.
class TrustedAuthority
{
  public:
    explicit TrustedAuthority(const QSslCertificate &authority)
    {
        EXPECT_TRUE(m_file.open());
        m_file.write(authority.toPem());
        m_file.close();
        qputenv("SSL_CERT_FILE", QFile::encodeName(m_file.fileName()));
        qunsetenv("SSL_CERT_DIR");
    }
    ~TrustedAuthority()
    {
        restore("SSL_CERT_FILE", m_fileBefore);
        restore("SSL_CERT_DIR", m_folderBefore);
    }
    TrustedAuthority(const TrustedAuthority &) = delete;
    TrustedAuthority &operator=(const TrustedAuthority &) = delete;

  private:
    static void restore(const char *variable, const std::optional<QByteArray> &before)
    {
        if (before) {
            qputenv(variable, *before);
        } else {
            qunsetenv(variable);
        }
    }
    static std::optional<QByteArray> now(const char *variable)
    {
        return qEnvironmentVariableIsSet(variable) ? std::optional<QByteArray>(qgetenv(variable)) : std::nullopt;
    }

    std::optional<QByteArray> m_fileBefore = now("SSL_CERT_FILE");
    std::optional<QByteArray> m_folderBefore = now("SSL_CERT_DIR");
    QTemporaryFile m_file;
};

} // namespace quorvane
