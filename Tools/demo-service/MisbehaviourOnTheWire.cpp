// What each misbehaviour does once a request is read. Those that act earlier (on accept, during the request) are done
// by the connection itself.

#include "demo-service/Gzip.h"
#include "demo-service/Misbehaviour.h"
#include "demo-service/ServiceAnswer.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Kind = Misbehaviour::Kind;

constexpr qsizetype kRepeatedBytes = 64 * 1024;
constexpr int kManyCandidates = 10000;

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray jsonHead(int status, qint64 length)
{
    return httpHead(status, {{"Content-Type", "application/json"}, {"Content-Length", QByteArray::number(length)}});
}

WireScript chunked(const Misbehaviour &how, const QByteArray &body)
{
    WireScript script;
    script.write(httpHead(how.status, {{"Content-Type", "application/json"}, {"Transfer-Encoding", "chunked"}}));
    const qsizetype portion = std::max<qsizetype>(how.bytes, 1);
    const qsizetype end = how.kind == Kind::ChunkedCut ? body.size() / 2 : body.size();
    for (qsizetype start = 0; start < end; start += portion) {
        const QByteArray part = body.mid(start, portion);
        script.write(QByteArray::number(part.size(), 16) + "\r\n" + part + "\r\n");
    }
    return how.kind == Kind::ChunkedCut ? script.close() : script.write("0\r\n\r\n");
}

WireScript gzipped(const QByteArray &compressed)
{
    return HttpAnswer{200, {{"Content-Type", "application/json"}, {"Content-Encoding", "gzip"}}, compressed};
}

/// base64 as strict decoders must refuse it. The picture grows by zero bytes, which no image reader minds, where its
/// length would leave nothing to break.
QString brokenBase64(Kind kind, QByteArray picture)
{
    const bool wantsPadding = kind == Kind::Base64MissingPadding || kind == Kind::Base64SurplusPadding;
    while (wantsPadding && picture.size() % 3 == 0) {
        picture.append('\0');
    }
    QByteArray text = picture.toBase64();
    switch (kind) {
    case Kind::Base64MissingPadding:
        while (text.endsWith('=')) {
            text.chop(1);
        }
        break;
    case Kind::Base64SurplusPadding:
        text += '=';
        break;
    case Kind::Base64LineBreaks:
        for (qsizetype at = 76; at < text.size(); at += 78) {
            text.insert(at, "\r\n");
        }
        break;
    default:
        // Three bytes of all ones make sure that the two characters in question occur.
        text = (picture + QByteArray(3, '\xff')).toBase64(QByteArray::Base64UrlEncoding);
    }
    return QString::fromLatin1(text);
}

QByteArray nestedLists(qint64 size)
{
    const QByteArray front = R"({"candidates":)";
    const qsizetype depth = std::max<qsizetype>((size - front.size() - 1) / 2, 1);
    return front + QByteArray(depth, '[') + QByteArray(depth, ']') + '}';
}

/// The list in which the service's pictures stand.
QString listName(const PictureOrder &order)
{
    return order.service == PictureOrder::Service::Gemini ? u"candidates"_s : u"data"_s;
}

/// Puts a member in front of all others, by text: no JSON library writes what these members hold.
QByteArray withFirstMember(const QByteArray &object, const QByteArray &member)
{
    return '{' + member + ',' + object.mid(1);
}

QByteArray manyCandidates(const PictureOrder &order, QJsonObject answer)
{
    QJsonArray list = answer.value(listName(order)).toArray();
    const QJsonValue last{QJsonObject{{u"finishReason"_s, u"OTHER"_s}}};
    while (list.size() < kManyCandidates) {
        list.append(last);
    }
    answer.insert(listName(order), list);
    return compact(answer);
}

QByteArray strangeBody(const Misbehaviour &how, const PictureOrder &order, const QByteArray &picture)
{
    const QString base64 = QString::fromLatin1(picture.toBase64());
    const QByteArray good = compact(pictureAnswer(order, base64));
    switch (how.kind) {
    case Kind::OddTexts:
        return withFirstMember(good, R"("note\u0000":"\ud800 alone, \udc00 too, \u0000 in the middle")");
    case Kind::InvalidUtf8:
        return withFirstMember(good, "\"note\":\"\xc3\x28 \xff \xed\xa0\x80\"");
    case Kind::DuplicateKeys:
        return withFirstMember(good, '"' + listName(order).toLatin1() + "\":[]");
    case Kind::ManyCandidates:
        return manyCandidates(order, pictureAnswer(order, base64));
    case Kind::HugeAnswer:
        return withFirstMember(good,
                               "\"padding\":\"" + QByteArray(std::max<qint64>(how.bytes - good.size(), 0), 'a') + '"');
    case Kind::DataAddress:
        return compact(pictureAnswer(order, u"data:image/"_s + QLatin1String(order.format()) + u";base64,"_s + base64));
    case Kind::Base64MissingPadding:
    case Kind::Base64SurplusPadding:
    case Kind::Base64LineBreaks:
    case Kind::Base64UrlAlphabet:
        return compact(pictureAnswer(order, brokenBase64(how.kind, picture)));
    default:
        return good;
    }
}

} // namespace

WireScript misbehave(const Misbehaviour &how, const HttpRequest &request)
{
    switch (how.kind) {
    case Kind::ErrorObject:
        return errorAnswer(how.status, QString::fromUtf8(how.text));
    case Kind::ErrorText:
        return HttpAnswer::json(how.status, compact({{u"error"_s, QString::fromUtf8(how.text)}}));
    case Kind::JsonList:
        return HttpAnswer::json(how.status, R"([{"candidates":[]},{"data":[]}])");
    case Kind::PlainText:
        return HttpAnswer{how.status, {{"Content-Type", "text/plain"}}, "The service is being repaired."};
    case Kind::EmptyBody:
        return HttpAnswer::json(how.status, QByteArray());
    case Kind::NoPicture:
        return HttpAnswer::json(
            how.status, R"({"candidates":[{"content":{"parts":[{"text":"No."}]},"finishReason":"SAFETY"}],"data":[]})");
    case Kind::OddErrorText:
        return HttpAnswer::json(how.status, R"({"error":{"message":"before \ud800 between \u0000 after"}})");
    case Kind::NestedLists:
        return HttpAnswer::json(how.status, nestedLists(how.bytes));
    case Kind::SilenceAfterHeaders:
        return WireScript().write(jsonHead(how.status, how.bytes)).hang();
    case Kind::ResetAfterRequest:
        return WireScript().reset();
    case Kind::ResetAfterHeaders:
        return WireScript().write(jsonHead(how.status, how.bytes)).reset();
    case Kind::EndlessHeaders:
        return WireScript().write("HTTP/1.1 200 OK\r\n").repeat("X-More: " + QByteArray(1000, 'a') + "\r\n");
    case Kind::EndlessBody:
        return WireScript()
            .write(httpHead(how.status, {{"Content-Type", "application/json"}, {"Connection", "close"}}))
            .write(R"({"padding":")")
            .repeat(QByteArray(kRepeatedBytes, 'a'));
    case Kind::GzipBomb:
        return gzipped(gzipBomb(how.bytes));
    case Kind::Garbage:
        return WireScript().write("\x16\x03 this is \xff\xfe no HTTP at all\r\n\r\n\r\n").close();
    case Kind::Redirect:
        return HttpAnswer{how.status, {{"Location", how.text}}, QByteArray()};
    case Kind::RedirectLoop:
        return HttpAnswer{how.status, {{"Location", request.path}}, QByteArray()};
    default:
        return WireScript().hang();
    }
}

WireScript misbehave(const Misbehaviour &how, const PictureOrder &order, const QByteArray &picture)
{
    const QByteArray body = strangeBody(how, order, picture);
    const QByteArray head = jsonHead(how.status, body.size());
    const QByteArray half = body.left(body.size() / 2);
    switch (how.kind) {
    case Kind::SlowDrip:
        return WireScript().drip(head + body, std::max<qsizetype>(how.bytes, 1), how.pause);
    case Kind::SilenceMidBody:
        return WireScript().write(head).write(half).hang();
    case Kind::ResetMidBody:
        return WireScript().write(head).write(half).reset();
    case Kind::CutBody:
        return WireScript().write(head).write(half).close();
    case Kind::LengthTooLarge:
        return WireScript().write(jsonHead(how.status, body.size() + 1000)).write(body).close();
    case Kind::LengthTooSmall:
        return WireScript().write(jsonHead(how.status, half.size())).write(body).close();
    case Kind::Chunked:
    case Kind::ChunkedCut:
        return chunked(how, body);
    case Kind::Gzip:
        return gzipped(gzip(body));
    default:
        return HttpAnswer::json(how.status, body);
    }
}

} // namespace quorvane
