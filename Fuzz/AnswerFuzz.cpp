// An answer of any service: any bytes become a picture or a reason, never anything else, and leaving long texts out of
// the document changes nothing about what is read.

#include "Providers/AnswerDocument.h"
#include "Providers/GeminiProvider.h"
#include "Providers/GrokProvider.h"
#include "Providers/OpenAIProvider.h"
#include "Providers/ProviderError.h"

#include <QJsonDocument>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace quorvane;
    const QByteArray answer(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const AnswerFormat &format :
         {GeminiProvider::service().answer, GrokProvider::service().answer, OpenAIProvider::service().answer}) {
        try {
            const EncodedImage image = imageFromAnswer(answer, format);
            if (image.bytes.size() > answer.size() || (image.extension != "png"_L1 && image.extension != "jpg"_L1)) {
                std::abort();
            }
        } catch (const ProviderError &error) {
            if (error.errorDescription().isEmpty()) {
                std::abort();
            }
        }
    }
    if (AnswerDocument::parse(answer).has_value() != QJsonDocument::fromJson(answer).isObject()) {
        std::abort();
    }
    return 0;
}
