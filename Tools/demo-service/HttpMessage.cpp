#include "demo-service/HttpMessage.h"

#include <algorithm>

namespace quorvane {

namespace {

QByteArray reasonPhrase(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 301:
        return "Moved Permanently";
    case 302:
        return "Found";
    case 303:
        return "See Other";
    case 307:
        return "Temporary Redirect";
    case 308:
        return "Permanent Redirect";
    case 400:
        return "Bad Request";
    case 401:
        return "Unauthorized";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 429:
        return "Too Many Requests";
    case 500:
        return "Internal Server Error";
    default:
        return "Other";
    }
}

} // namespace

QByteArray HttpRequest::header(const QByteArray &name) const
{
    const auto found = std::find_if(headers.begin(), headers.end(), [&name](const auto &field) {
        return field.first.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == headers.end() ? QByteArray() : found->second;
}

HttpAnswer HttpAnswer::json(int status, QByteArray body)
{
    return {status, {{"Content-Type", "application/json; charset=UTF-8"}}, std::move(body)};
}

QByteArray HttpAnswer::head() const
{
    HttpHeaders all = headers;
    all.emplaceBack("Content-Length", QByteArray::number(body.size()));
    return httpHead(status, all);
}

QByteArray httpHead(int status, const HttpHeaders &headers)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + ' ' + reasonPhrase(status) + "\r\n";
    for (const auto &[name, value] : headers) {
        head += name + ": " + value + "\r\n";
    }
    return head + "\r\n";
}

} // namespace quorvane
