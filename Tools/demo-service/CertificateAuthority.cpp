#include "demo-service/CertificateAuthority.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// The "ca" command is the one that takes any pair of dates, past ones too; it insists on a file with its settings.
const char *const kSettings = R"(
[ca]
default_ca = here
[here]
new_certs_dir = .
database = index.txt
certificate = authority.pem
private_key = authority.key
rand_serial = yes
default_md = sha256
policy = any
unique_subject = no
[any]
commonName = supplied
)";

QString openSslTime(const QDateTime &time)
{
    return time.toUTC().toString(u"yyyyMMddHHmmss"_s) + u'Z';
}

} // namespace

CertificateAuthority::CertificateAuthority(const QString &name)
{
    const bool made = writeFile(u"settings"_s, kSettings) && writeFile(u"index.txt"_s, QByteArray()) &&
                      openssl({u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                               u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s, u"-days"_s, u"30"_s, u"-subj"_s,
                               u"/CN="_s + name, u"-keyout"_s, u"authority.key"_s, u"-out"_s, u"authority.pem"_s});
    if (made) {
        m_certificate = QSslCertificate::fromPath(path(u"authority.pem"_s)).value(0);
    }
}

std::optional<QSslConfiguration> CertificateAuthority::issue(const Request &request)
{
    const QByteArray extensions = "basicConstraints=CA:FALSE\nextendedKeyUsage=serverAuth\nsubjectAltName=" +
                                  request.hosts.join(u',').toLatin1() + '\n';
    const bool made = writeFile(u"extensions"_s, extensions) &&
                      openssl({u"req"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:prime256v1"_s,
                               u"-nodes"_s, u"-subj"_s, u"/CN=Quorvane demonstration service"_s, u"-keyout"_s,
                               u"server.key"_s, u"-out"_s, u"server.request"_s}) &&
                      openssl({u"ca"_s, u"-batch"_s, u"-notext"_s, u"-config"_s, u"settings"_s, u"-extfile"_s,
                               u"extensions"_s, u"-startdate"_s, openSslTime(request.from), u"-enddate"_s,
                               openSslTime(request.until), u"-in"_s, u"server.request"_s, u"-out"_s, u"server.pem"_s});
    return made ? readServerTls(path(u"server.pem"_s), path(u"server.key"_s)) : std::nullopt;
}

bool CertificateAuthority::openssl(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"openssl"_s, arguments);
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return true;
    }
    m_errorString = u"openssl: "_s + process.errorString() + u'\n' + QString::fromLocal8Bit(process.readAll());
    return false;
}

bool CertificateAuthority::writeFile(const QString &name, const QByteArray &text)
{
    QFile file(path(name));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size()) {
        return true;
    }
    m_errorString = file.errorString();
    return false;
}

std::optional<QSslConfiguration> readServerTls(const QString &certificatePath, const QString &keyPath)
{
    QFile keyFile(keyPath);
    if (!keyFile.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray keyText = keyFile.readAll();
    QSslKey key(keyText, QSsl::Ec);
    if (key.isNull()) {
        key = QSslKey(keyText, QSsl::Rsa);
    }
    const QList<QSslCertificate> chain = QSslCertificate::fromPath(certificatePath);
    if (chain.isEmpty() || key.isNull()) {
        return std::nullopt;
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(chain);
    configuration.setPrivateKey(key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone); // Clients show no certificate.
    configuration.setAllowedNextProtocols({"http/1.1"_ba});
    return configuration;
}

} // namespace quorvane
