#pragma once

#include <QSslConfiguration>

namespace quorvane {

/// TLS settings for every request: the peer is always verified, against the certificate authorities of SSL_CERT_FILE
/// and SSL_CERT_DIR where one of them is set, else against the system's. HTTP/2 is offered.
[[nodiscard]] QSslConfiguration trustedTlsConfiguration();

} // namespace quorvane
