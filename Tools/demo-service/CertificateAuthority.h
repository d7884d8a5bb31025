#pragma once

#include <QDateTime>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A certificate authority made for this run by the openssl program. Nothing on the machine trusts it; a client has to
/// be given certificate(). Keys lie in a private temporary folder that goes with the object.
class CertificateAuthority
{
  public:
    /// What a server certificate says.
    struct Request
    {
        QStringList hosts{u"DNS:localhost"_s, u"IP:127.0.0.1"_s, u"IP:::1"_s};
        QDateTime from = QDateTime::currentDateTimeUtc().addDays(-1);
        QDateTime until = QDateTime::currentDateTimeUtc().addDays(30);
    };

    /// Blocks for a moment. Where openssl is missing or fails, certificate() is null and errorString() says why.
    explicit CertificateAuthority(const QString &name = u"Quorvane demonstration authority"_s);

    [[nodiscard]] const QSslCertificate &certificate() const { return m_certificate; }
    [[nodiscard]] QString errorString() const { return m_errorString; }

    /// Certificate and key for a server, as DemoService takes them; nothing when openssl fails.
    [[nodiscard]] std::optional<QSslConfiguration> issue(const Request &request);

  private:
    bool openssl(const QStringList &arguments);
    bool writeFile(const QString &name, const QByteArray &text);
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    QSslCertificate m_certificate;
    QString m_errorString;
};

/// Server settings from files in PEM; nothing when one is missing or malformed.
[[nodiscard]] std::optional<QSslConfiguration> readServerTls(const QString &certificatePath, const QString &keyPath);

} // namespace quorvane
