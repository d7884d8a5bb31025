#include "demo-service/Misbehaviour.h"

#include <algorithm>
#include <array>

namespace quorvane {

namespace {

using Kind = Misbehaviour::Kind;

constexpr qint64 kMebibyte = 1024 * 1024;

struct Entry
{
    Kind kind;
    const char *name;
    bool needsPicture;
    int status = 200;
    qint64 bytes = 0;
    int pauseMilliseconds = 0;
    const char *text = "";
};

constexpr std::array kEntries{
    Entry{Kind::None, "none", true},
    Entry{Kind::ErrorObject, "error-object", false, 400, 0, 0, "The request was refused on purpose."},
    Entry{Kind::ErrorText, "error-text", false, 400, 0, 0, "The request was refused on purpose."},
    Entry{Kind::GoodBodyBadStatus, "good-body-bad-status", true, 500},
    Entry{Kind::JsonList, "json-list", false},
    Entry{Kind::PlainText, "plain-text", false},
    Entry{Kind::EmptyBody, "empty-body", false},
    Entry{Kind::NoPicture, "no-picture", false},
    Entry{Kind::OddTexts, "odd-texts", true},
    Entry{Kind::OddErrorText, "odd-error-text", false, 400},
    Entry{Kind::InvalidUtf8, "invalid-utf8", true},
    Entry{Kind::DuplicateKeys, "duplicate-keys", true},
    Entry{Kind::ManyCandidates, "many-candidates", true},
    Entry{Kind::NestedLists, "nested-lists", false, 200, 64 * kMebibyte},
    Entry{Kind::HugeAnswer, "huge-answer", true, 200, 256 * kMebibyte},
    Entry{Kind::DataAddress, "data-address", true},
    Entry{Kind::Base64MissingPadding, "base64-missing-padding", true},
    Entry{Kind::Base64SurplusPadding, "base64-surplus-padding", true},
    Entry{Kind::Base64LineBreaks, "base64-line-breaks", true},
    Entry{Kind::Base64UrlAlphabet, "base64-url-alphabet", true},
    Entry{Kind::SlowDrip, "slow-drip", true, 200, 1024, 20},
    Entry{Kind::SilenceOnAccept, "silence-on-accept", false},
    Entry{Kind::Silence, "silence", false},
    Entry{Kind::SilenceAfterHeaders, "silence-after-headers", false, 200, 1000},
    Entry{Kind::SilenceMidBody, "silence-mid-body", true},
    Entry{Kind::ResetOnAccept, "reset-on-accept", false},
    Entry{Kind::ResetDuringRequest, "reset-during-request", false},
    Entry{Kind::ResetAfterRequest, "reset-after-request", false},
    Entry{Kind::ResetAfterHeaders, "reset-after-headers", false, 200, 1000},
    Entry{Kind::ResetMidBody, "reset-mid-body", true},
    Entry{Kind::CutBody, "cut-body", true},
    Entry{Kind::LengthTooLarge, "length-too-large", true},
    Entry{Kind::LengthTooSmall, "length-too-small", true},
    Entry{Kind::Chunked, "chunked", true, 200, 4096},
    Entry{Kind::ChunkedCut, "chunked-cut", true, 200, 4096},
    Entry{Kind::EndlessHeaders, "endless-headers", false},
    Entry{Kind::EndlessBody, "endless-body", false},
    Entry{Kind::Gzip, "gzip", true},
    Entry{Kind::GzipBomb, "gzip-bomb", false, 200, 1024 * kMebibyte},
    Entry{Kind::Garbage, "garbage", false},
    Entry{Kind::Redirect, "redirect", false, 307, 0, 0, "/elsewhere"},
    Entry{Kind::RedirectLoop, "redirect-loop", false, 307},
};

const Entry &entryOf(Kind kind)
{
    const auto *found =
        std::find_if(kEntries.begin(), kEntries.end(), [kind](const Entry &e) { return e.kind == kind; });
    Q_ASSERT(found != kEntries.end());
    return *found;
}

bool setField(Misbehaviour &misbehaviour, const QByteArray &name, const QByteArray &value)
{
    bool good = false;
    if (name == "status") {
        misbehaviour.status = value.toInt(&good);
    } else if (name == "bytes") {
        misbehaviour.bytes = value.toLongLong(&good);
    } else if (name == "pause") {
        misbehaviour.pause = std::chrono::milliseconds(value.toInt(&good));
    }
    return good;
}

} // namespace

Misbehaviour::Misbehaviour(Kind kind_)
    : kind(kind_)
    , status(entryOf(kind_).status)
    , bytes(entryOf(kind_).bytes)
    , pause(entryOf(kind_).pauseMilliseconds)
    , text(entryOf(kind_).text)
{
}

std::optional<Misbehaviour> misbehaviourFromText(const QByteArray &text)
{
    const qsizetype colon = text.indexOf(':');
    const QByteArray name = colon < 0 ? text : text.left(colon);
    const auto *entry =
        std::find_if(kEntries.begin(), kEntries.end(), [&name](const Entry &e) { return name == e.name; });
    if (entry == kEntries.end()) {
        return std::nullopt;
    }
    Misbehaviour misbehaviour(entry->kind);
    QByteArray rest = colon < 0 ? QByteArray() : text.mid(colon + 1);
    while (!rest.isEmpty()) {
        if (rest.startsWith("text=")) {
            misbehaviour.text = rest.mid(5);
            break;
        }
        const qsizetype comma = rest.indexOf(',');
        const QByteArray field = comma < 0 ? rest : rest.left(comma);
        const qsizetype equals = field.indexOf('=');
        if (!setField(misbehaviour, field.left(equals), field.mid(equals + 1))) {
            return std::nullopt;
        }
        rest = comma < 0 ? QByteArray() : rest.mid(comma + 1);
    }
    return misbehaviour;
}

QByteArrayList misbehaviourNames()
{
    QByteArrayList names;
    for (const Entry &entry : kEntries) {
        names += entry.name;
    }
    return names;
}

bool needsPicture(Kind kind)
{
    return entryOf(kind).needsPicture;
}

} // namespace quorvane
