#pragma once

#include "demo-service/CertificateAuthority.h"

namespace quorvane {

/// Server settings for a DemoService, each with what a client has to make of it. Made by the openssl program for the
/// test program's run; making one takes some hundredths of a second and fails the test where openssl does.
class TestCertificates
{
  public:
    TestCertificates();

    /// The authority that a client has to be told to trust.
    [[nodiscard]] const QSslCertificate &authority() const { return m_authority.certificate(); }

    /// Valid for localhost, 127.0.0.1 and ::1.
    [[nodiscard]] QSslConfiguration valid();

    /// Was valid until yesterday.
    [[nodiscard]] QSslConfiguration expired();

    /// Valid, but for elsewhere.example only.
    [[nodiscard]] QSslConfiguration wrongHost();

    /// Valid, but signed by an authority that is not authority().
    [[nodiscard]] QSslConfiguration unknownAuthority();

  private:
    CertificateAuthority m_authority;
};

} // namespace quorvane
