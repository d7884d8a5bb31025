// A base address from the environment and a model's name in it: whatever they hold, a request goes out over https, or
// over http to this machine, or not at all.

#include "Providers/GeminiProvider.h"

#include <QUrl>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace quorvane;
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QByteArray address = input.left(input.indexOf('\n')).replace('\0', ' ');
    const QString model = QString::fromUtf8(input.mid(input.indexOf('\n') + 1));
    qputenv(kGeminiService.addressVariable, address);
    const bool refused = !checkAddress(kGeminiService);
    const QUrl url = requestUrl(requestFor(GeminiProvider::service(), {{}, model, false}, {}));
    if (!refused && url.isValid()) {
        const QUrl base(QString::fromUtf8(address), QUrl::StrictMode);
        // Nothing that a model is called leads to another host.
        if (!isAllowedAddress(url) ||
            (!address.isEmpty() && (url.host() != base.host() || url.port() != base.port()))) {
            std::abort();
        }
    }
    return 0;
}
