#include "demo-service/HttpRequestReader.h"

#include <algorithm>
#include <cstring>

namespace quorvane {

namespace {

bool isToken(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               (c != '\0' && std::strchr("!#$%&'*+-.^_`|~", c) != nullptr);
    });
}

bool isVisible(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) { return c > 0x20 && c < 0x7f; });
}

bool isFieldValue(const QByteArray &text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c == '\t' || static_cast<uchar>(c) >= 0x20; });
}

bool isDigits(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

std::optional<HttpRequest> HttpRequestReader::next()
{
    if (m_refusal.status != 0) {
        return std::nullopt;
    }
    if (!m_request) {
        const qsizetype end = m_bytes.indexOf("\r\n\r\n");
        if ((end < 0 ? m_bytes.size() : end) > kLargestHead) {
            refuse(431, "The request head is too large.");
            return std::nullopt;
        }
        if (end < 0) {
            return std::nullopt;
        }
        readHead(m_bytes.left(end));
        m_bytes.remove(0, end + 4);
    }
    if (m_refusal.status != 0 || m_bytes.size() < m_bodyLength) {
        return std::nullopt;
    }
    m_request->body = m_bytes.left(m_bodyLength);
    m_bytes.remove(0, m_bodyLength);
    return std::exchange(m_request, std::nullopt);
}

void HttpRequestReader::refuse(int status, const QByteArray &why)
{
    if (m_refusal.status == 0) {
        m_refusal = {status, {{"Content-Type", "text/plain"}, {"Connection", "close"}}, why};
    }
}

void HttpRequestReader::readHead(const QByteArray &head)
{
    m_request.emplace();
    qsizetype start = 0;
    bool first = true;
    while (start <= head.size()) {
        const qsizetype end = head.indexOf("\r\n", start);
        const QByteArray line = head.mid(start, end < 0 ? -1 : end - start);
        first ? readRequestLine(line) : readHeaderLine(line);
        first = false;
        start = end < 0 ? head.size() + 1 : end + 2;
    }
    if (m_request->header("Host").isEmpty()) {
        refuse(400, "The Host header is missing.");
    }
    readBodyLength();
}

void HttpRequestReader::readRequestLine(const QByteArray &line)
{
    const QByteArrayList words = line.split(' ');
    if (words.size() != 3 || !isToken(words[0]) || !isVisible(words[1]) || !words[1].startsWith('/')) {
        refuse(400, "The request line is malformed.");
        return;
    }
    if (words[2] != "HTTP/1.1") {
        refuse(505, "Only HTTP/1.1 is spoken here.");
    }
    m_request->method = words[0];
    m_request->path = words[1];
}

void HttpRequestReader::readHeaderLine(const QByteArray &line)
{
    const qsizetype colon = line.indexOf(':');
    const QByteArray value = line.mid(colon + 1).trimmed();
    if (colon < 0 || !isToken(line.left(colon)) || !isFieldValue(value)) {
        refuse(400, "A header line is malformed.");
        return;
    }
    m_request->headers.emplaceBack(line.left(colon), value);
}

void HttpRequestReader::readBodyLength()
{
    m_bodyLength = 0;
    if (!m_request->header("Transfer-Encoding").isNull()) {
        refuse(501, "A request body needs a Content-Length.");
    }
    QByteArrayList lengths;
    for (const auto &[name, value] : m_request->headers) {
        if (name.compare("Content-Length", Qt::CaseInsensitive) == 0) {
            lengths += value;
        }
    }
    if (lengths.isEmpty()) {
        if (m_request->method == "POST") {
            refuse(411, "A POST request needs a Content-Length.");
        }
        return;
    }
    if (lengths.size() > 1 || !isDigits(lengths.first())) {
        refuse(400, "The Content-Length is malformed.");
        return;
    }
    bool fits = false;
    m_bodyLength = lengths.first().toLongLong(&fits);
    if (!fits || m_bodyLength > kLargestBody) {
        refuse(413, "The request body is too large.");
    }
}

} // namespace quorvane
