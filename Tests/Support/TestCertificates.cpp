#include "Support/TestCertificates.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QSslConfiguration issued(CertificateAuthority &authority, const CertificateAuthority::Request &request)
{
    const std::optional<QSslConfiguration> configuration = authority.issue(request);
    EXPECT_TRUE(configuration.has_value()) << authority.errorString().toStdString();
    return configuration.value_or(QSslConfiguration());
}

} // namespace

TestCertificates::TestCertificates()
{
    EXPECT_FALSE(m_authority.certificate().isNull()) << m_authority.errorString().toStdString();
}

QSslConfiguration TestCertificates::valid()
{
    return issued(m_authority, CertificateAuthority::Request());
}

QSslConfiguration TestCertificates::expired()
{
    CertificateAuthority::Request request;
    request.from = QDateTime::currentDateTimeUtc().addDays(-20);
    request.until = QDateTime::currentDateTimeUtc().addDays(-1);
    return issued(m_authority, request);
}

QSslConfiguration TestCertificates::wrongHost()
{
    CertificateAuthority::Request request;
    request.hosts = QStringList{u"DNS:elsewhere.example"_s};
    return issued(m_authority, request);
}

QSslConfiguration TestCertificates::unknownAuthority()
{
    CertificateAuthority other(u"Nobody's authority"_s);
    return issued(other, CertificateAuthority::Request());
}

} // namespace quorvane
