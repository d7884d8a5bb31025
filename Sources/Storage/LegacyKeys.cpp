#include "Storage/LegacyKeys.h"

#include "Platform/Secrets/SecretStore.h"
#include "Storage/Keychain.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Nothing when the bytes are no valid UTF-8.
std::optional<QString> textFromUtf8(const QByteArray &bytes)
{
    // A byte order mark at the beginning belongs to the text like any other character.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

void moveKey(SecretStore &store, const QString &providerId)
{
    const QString service = u"app.quorvane.Quorvane"_s;
    const QString account = providerId + u"-api-key"_s;
    const std::optional<QByteArray> bytes = store.read(service, account);
    const std::optional<QString> key = bytes ? textFromUtf8(*bytes) : std::nullopt;
    if (key && Keychain::saveIfAbsent(*key, providerId)) {
        store.remove(service, account);
    }
}

} // namespace

void moveLegacyKeys(SecretStore &store)
{
    // The oldest version knew one service only. Its item has the name that later versions gave to that service's key,
    // so the second look at it normally finds nothing.
    moveKey(store, u"gemini"_s);

    // Not every provider that there is now: these are the ones that the older version had.
    for (const QString &providerId : {u"gemini"_s, u"grok"_s, u"openai"_s}) {
        moveKey(store, providerId);
    }
}

} // namespace quorvane
