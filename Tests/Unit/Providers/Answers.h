#pragma once

#include "Providers/ProviderError.h"
#include "Providers/ServiceRequest.h"

#include <QByteArray>
#include <QString>

namespace quorvane {

using namespace Qt::StringLiterals;

/// What a user reads after this answer: "picture:EXTENSION:BYTES", or the error's text.
inline QString outcomeOf(const QByteArray &answer, const AnswerFormat &format)
{
    try {
        const EncodedImage image = imageFromAnswer(answer, format);
        return u"picture:"_s + image.extension + ':'_L1 + QString::fromLatin1(image.bytes);
    } catch (const ProviderError &error) {
        return error.errorDescription();
    }
}

struct AnswerCase
{
    const char *answer;
    const char *outcome;
};

} // namespace quorvane
