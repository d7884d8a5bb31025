#include "demo-service/Gzip.h"

#include <zlib.h>

#include <array>

namespace quorvane {

namespace {

/// A deflate stream in the gzip wrapping that is fed piece by piece.
class GzipStream
{
  public:
    explicit GzipStream(int level)
    {
        constexpr int kGzipWrapping = 16;
        deflateInit2(&m_stream, level, Z_DEFLATED, MAX_WBITS + kGzipWrapping, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY);
    }
    ~GzipStream() { deflateEnd(&m_stream); }
    GzipStream(const GzipStream &) = delete;
    GzipStream &operator=(const GzipStream &) = delete;

    void feed(const QByteArray &bytes) { run(bytes, Z_NO_FLUSH); }

    QByteArray finish()
    {
        run({}, Z_FINISH);
        return m_result;
    }

  private:
    void run(const QByteArray &bytes, int flush)
    {
        QByteArray input = bytes; // zlib reads through a pointer to mutable bytes.
        m_stream.next_in = reinterpret_cast<Bytef *>(input.data());
        m_stream.avail_in = static_cast<uInt>(input.size());
        do {
            m_stream.next_out = m_buffer.data();
            m_stream.avail_out = m_buffer.size();
            deflate(&m_stream, flush);
            m_result.append(reinterpret_cast<const char *>(m_buffer.data()), m_buffer.size() - m_stream.avail_out);
        } while (m_stream.avail_out == 0);
    }

    z_stream m_stream{};
    std::array<Bytef, 65536> m_buffer{};
    QByteArray m_result;
};

} // namespace

QByteArray gzip(const QByteArray &bytes)
{
    GzipStream stream(Z_BEST_SPEED);
    stream.feed(bytes);
    return stream.finish();
}

QByteArray gzipBomb(qint64 sizeBytes)
{
    constexpr qsizetype kPiece = 1024 * 1024;
    const QByteArray piece(kPiece, 'a');
    GzipStream stream(Z_BEST_COMPRESSION);
    stream.feed(R"({"padding":")");
    for (qint64 made = 0; made < sizeBytes; made += kPiece) {
        stream.feed(piece);
    }
    stream.feed(R"("})");
    return stream.finish();
}

} // namespace quorvane
