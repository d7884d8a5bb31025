// A picture is one text of many megabytes in a small document. QJsonDocument would copy it once into its own storage
// and once more, doubled to UTF-16, when it is asked for. So long texts of plain printable ASCII without escapes are
// first replaced by short stand-ins, and the small document that is left goes to QJsonDocument, which remains the only
// judge of what is JSON. A streaming parser would do the same with far more code of our own.

#include "Providers/AnswerDocument.h"

#include <QJsonDocument>
#include <QUuid>

#include <algorithm>
#include <cstring>

namespace quorvane {

namespace {

// Below this a copy costs nothing; above it a text is worth a stand-in.
constexpr qsizetype kLongTextBytes = 4096;

bool isPlain(QByteArrayView text)
{
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr unsigned char kFirstBeyondAscii = 0x80;
    bool plain = true;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        plain = plain && byte >= kFirstPrintable && byte < kFirstBeyondAscii;
    }
    return plain && std::memchr(text.data(), '\\', static_cast<std::size_t>(text.size())) == nullptr;
}

/// The position of the quote that ends the text whose first character is at begin; the end of json when none does.
qsizetype endOfText(QByteArrayView json, qsizetype begin)
{
    qsizetype at = begin;
    while (at < json.size()) {
        const auto *quote =
            static_cast<const char *>(std::memchr(json.data() + at, '"', static_cast<std::size_t>(json.size() - at)));
        if (quote == nullptr) {
            return json.size();
        }
        const qsizetype position = quote - json.data();
        qsizetype backslashes = 0;
        while (position - backslashes > begin && json[position - backslashes - 1] == '\\') {
            ++backslashes;
        }
        if (backslashes % 2 == 0) {
            return position;
        }
        at = position + 1;
    }
    return json.size();
}

} // namespace

std::optional<AnswerDocument> AnswerDocument::parse(QByteArray answer)
{
    AnswerDocument document;
    document.m_answer = std::move(answer);
    document.m_mark = QUuid::createUuid().toByteArray();

    const QByteArrayView json = document.m_answer;
    QByteArray reduced;
    qsizetype copied = 0;
    for (qsizetype at = json.indexOf('"'); at >= 0; at = json.indexOf('"', at)) {
        const qsizetype begin = at + 1;
        const qsizetype end = endOfText(json, begin);
        const QByteArrayView text = json.sliced(begin, end - begin);
        if (text.size() > kLongTextBytes && end < json.size() && isPlain(text)) {
            reduced += json.sliced(copied, begin - copied);
            reduced += document.m_mark + QByteArray::number(document.m_longTexts.size());
            copied = end;
            document.m_longTexts.append(text);
        }
        at = std::min(end + 1, json.size());
    }
    QJsonParseError error{};
    const QJsonDocument parsed = document.m_longTexts.isEmpty()
                                     ? QJsonDocument::fromJson(document.m_answer, &error)
                                     : QJsonDocument::fromJson(reduced += json.sliced(copied), &error);
    if (error.error != QJsonParseError::NoError || !parsed.isObject()) {
        return std::nullopt;
    }
    document.m_object = parsed.object();
    return document;
}

QByteArrayView AnswerDocument::textOf(const QJsonValue &value, QByteArray *storage) const
{
    *storage = value.toString().toUtf8();
    if (storage->startsWith(m_mark)) {
        bool isNumber = false;
        const int index = storage->sliced(m_mark.size()).toInt(&isNumber);
        if (isNumber && index >= 0 && index < m_longTexts.size()) {
            return m_longTexts.at(index);
        }
    }
    return *storage;
}

} // namespace quorvane
