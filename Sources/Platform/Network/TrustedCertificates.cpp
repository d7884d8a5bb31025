#include "Platform/Network/TrustedCertificates.h"

#include <QDir>
#include <QFile>
#include <QSslCertificate>
#include <QSslSocket>

using namespace Qt::StringLiterals;

namespace quorvane {

QSslConfiguration trustedTlsConfiguration()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    const QString file = QFile::decodeName(qgetenv("SSL_CERT_FILE"));
    const QString folders = QFile::decodeName(qgetenv("SSL_CERT_DIR"));
    if (!file.isEmpty() || !folders.isEmpty()) {
        QList<QSslCertificate> authorities;
        if (!file.isEmpty()) {
            authorities += QSslCertificate::fromPath(file);
        }
        for (const QString &folder : folders.split(':'_L1, Qt::SkipEmptyParts)) {
            authorities += QSslCertificate::fromPath(QDir(folder).filePath(u"*"_s), QSsl::Pem,
                                                     QSslCertificate::PatternSyntax::Wildcard);
        }
        configuration.setCaCertificates(authorities);
    }
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    return configuration;
}

} // namespace quorvane
