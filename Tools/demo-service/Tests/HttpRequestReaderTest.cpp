#include "demo-service/HttpRequestReader.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

int refusalOf(const QByteArray &bytes)
{
    HttpRequestReader reader;
    reader.feed(bytes);
    EXPECT_FALSE(reader.next().has_value());
    return reader.refusal().status;
}

} // namespace

TEST(HttpRequestReader, aRequestMayComeByteByByte)
{
    HttpRequestReader reader;
    const QByteArray bytes = "POST /a?b=c HTTP/1.1\r\nHost: here\r\ncontent-length: 3\r\nX-Two: 1\r\n\r\nabc";
    for (qsizetype at = 0; at + 1 < bytes.size(); ++at) {
        reader.feed(bytes.mid(at, 1));
        ASSERT_FALSE(reader.next().has_value());
    }
    reader.feed(bytes.right(1));
    const std::optional<HttpRequest> request = reader.next();
    ASSERT_TRUE(request.has_value());
    EXPECT_EQ(request->method, "POST");
    EXPECT_EQ(request->path, "/a?b=c");
    EXPECT_EQ(request->header("HOST"), "here");
    EXPECT_EQ(request->header("X-Two"), "1");
    EXPECT_TRUE(request->header("X-Three").isNull());
    EXPECT_EQ(request->body, "abc");
    EXPECT_EQ(reader.refusal().status, 0);
}

TEST(HttpRequestReader, twoRequestsInOnePieceComeOneAfterTheOther)
{
    HttpRequestReader reader;
    reader.feed("GET /1 HTTP/1.1\r\nHost: a\r\n\r\nPOST /2 HTTP/1.1\r\nHost: a\r\nContent-Length: 2\r\n\r\nxyGET");
    EXPECT_EQ(reader.next().value_or(HttpRequest()).path, "/1");
    EXPECT_EQ(reader.next().value_or(HttpRequest()).body, "xy");
    EXPECT_FALSE(reader.next().has_value());
    EXPECT_EQ(reader.refusal().status, 0);
}

TEST(HttpRequestReader, whatIsNotHttpIsRefused)
{
    EXPECT_EQ(refusalOf("hello\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("GET  / HTTP/1.1\r\nHost: a\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("GET http://a/ HTTP/1.1\r\nHost: a\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("GET / HTTP/1.0\r\nHost: a\r\n\r\n"), 505);
    EXPECT_EQ(refusalOf("GET / HTTP/1.1\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("GET / HTTP/1.1\r\nHost : a\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("GET / HTTP/1.1\r\nHost: a\r\n folded: b\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("GET / HTTP/1.1\r\nHost: a\r\nX: a\nb\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("POST / HTTP/1.1\r\nHost: a\r\n\r\n"), 411);
    EXPECT_EQ(refusalOf("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: +1\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: 1\r\nContent-Length: 1\r\n\r\n"), 400);
    EXPECT_EQ(refusalOf("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: 67108865\r\n\r\n"), 413);
    EXPECT_EQ(refusalOf("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: 99999999999999999999\r\n\r\n"), 413);
    EXPECT_EQ(refusalOf("POST / HTTP/1.1\r\nHost: a\r\nTransfer-Encoding: chunked\r\n\r\n"), 501);
    EXPECT_EQ(refusalOf("GET / HTTP/1.1\r\nX: " + QByteArray(70000, 'a')), 431);
}

} // namespace quorvane
