#include "Integration/HttpClientFixture.h"

#include "Support/TestCertificates.h"
#include "Support/TrustedAuthority.h"

#include <QSslCertificate>

using namespace Qt::StringLiterals;

namespace quorvane {

class HttpClientTlsTest : public testing::Test
{
  protected:
    static Outcome postTo(const QSslConfiguration &tls, const QSslCertificate &trusted)
    {
        DemoService service({.address = QHostAddress::LocalHost, .port = 0, .tls = tls});
        paintSmall(service);
        const TrustedAuthority authority(trusted);
        HttpClient client;
        const Outcome outcome = post(client, request(service));
        if (!outcome.failure.isEmpty()) {
            // Not a byte of the request may have gone out.
            EXPECT_TRUE(service.requests().isEmpty());
        }
        return outcome;
    }

    TestCertificates certificates;
};

TEST_F(HttpClientTlsTest, aValidCertificateOfATrustedAuthorityIsAccepted)
{
    const Outcome outcome = postTo(certificates.valid(), certificates.authority());
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_TRUE(outcome.answer.contains("b64_json"));
}

TEST_F(HttpClientTlsTest, eachKindOfBadCertificateIsRefusedInItsOwnWords)
{
    const QString expired = postTo(certificates.expired(), certificates.authority()).failure;
    const QString wrongHost = postTo(certificates.wrongHost(), certificates.authority()).failure;
    const QString unknown = postTo(certificates.unknownAuthority(), certificates.authority()).failure;
    EXPECT_EQ(expired, u"No secure connection to 127.0.0.1: The certificate has expired"_s);
    EXPECT_EQ(wrongHost, u"No secure connection to 127.0.0.1: The host name did not match any of the valid "
                         "hosts for this certificate"_s);
    EXPECT_TRUE(unknown.startsWith(u"No secure connection to 127.0.0.1: "_s)) << unknown.toStdString();
    EXPECT_NE(unknown, expired);
    EXPECT_NE(unknown, wrongHost);
}

} // namespace quorvane
