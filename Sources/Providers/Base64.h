#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace quorvane {

/// Decodes base64 strictly: the standard alphabet only, a length that is a multiple of four, padding exactly where it
/// belongs, no white space. Bits left over in the last character are not looked at. Nothing when text is anything else;
/// an empty text is an empty result. RFC 4648, section 4.
[[nodiscard]] std::optional<QByteArray> decodeBase64(QByteArrayView text);

} // namespace quorvane
