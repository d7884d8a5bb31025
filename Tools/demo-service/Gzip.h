#pragma once

#include <QByteArray>

namespace quorvane {

/// bytes as a gzip stream (zlib's own, for Content-Encoding: gzip).
[[nodiscard]] QByteArray gzip(const QByteArray &bytes);

/// A gzip stream, about a thousandth of the size, that unpacks to a JSON object of at least sizeBytes holding one long
/// text. It is made piece by piece and takes little memory here.
[[nodiscard]] QByteArray gzipBomb(qint64 sizeBytes);

} // namespace quorvane
