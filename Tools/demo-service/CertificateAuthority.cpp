#include "demo-service/CertificateAuthority.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>

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
    return time.toUTC().toString(QStringLiteral("yyyyMMddHHmmss")) + u'Z';
}

} // namespace

CertificateAuthority::CertificateAuthority(const QString &name)
{
    const bool made =
        writeFile(QStringLiteral("settings"), kSettings) && writeFile(QStringLiteral("index.txt"), QByteArray()) &&
        openssl({QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
                 QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                 QStringLiteral("-days"), QStringLiteral("30"), QStringLiteral("-subj"), QStringLiteral("/CN=") + name,
                 QStringLiteral("-keyout"), QStringLiteral("authority.key"), QStringLiteral("-out"),
                 QStringLiteral("authority.pem")});
    if (made) {
        m_certificate = QSslCertificate::fromPath(path(QStringLiteral("authority.pem"))).value(0);
    }
}

std::optional<QSslConfiguration> CertificateAuthority::issue(const Request &request)
{
    const QByteArray extensions = "basicConstraints=CA:FALSE\nextendedKeyUsage=serverAuth\nsubjectAltName=" +
                                  request.hosts.join(u',').toLatin1() + '\n';
    const bool made =
        writeFile(QStringLiteral("extensions"), extensions) &&
        openssl({QStringLiteral("req"), QStringLiteral("-newkey"), QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                 QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"), QStringLiteral("-subj"),
                 QStringLiteral("/CN=Quorvane demonstration service"), QStringLiteral("-keyout"),
                 QStringLiteral("server.key"), QStringLiteral("-out"), QStringLiteral("server.request")}) &&
        openssl({QStringLiteral("ca"), QStringLiteral("-batch"), QStringLiteral("-notext"), QStringLiteral("-config"),
                 QStringLiteral("settings"), QStringLiteral("-extfile"), QStringLiteral("extensions"),
                 QStringLiteral("-startdate"), openSslTime(request.from), QStringLiteral("-enddate"),
                 openSslTime(request.until), QStringLiteral("-in"), QStringLiteral("server.request"),
                 QStringLiteral("-out"), QStringLiteral("server.pem")});
    return made ? readServerTls(path(QStringLiteral("server.pem")), path(QStringLiteral("server.key"))) : std::nullopt;
}

bool CertificateAuthority::openssl(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("openssl"), arguments);
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return true;
    }
    m_errorString =
        QStringLiteral("openssl: ") + process.errorString() + u'\n' + QString::fromLocal8Bit(process.readAll());
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
    configuration.setAllowedNextProtocols({QByteArrayLiteral("http/1.1")});
    return configuration;
}

} // namespace quorvane
