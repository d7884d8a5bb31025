#pragma once

#include <QString>

#include <optional>
#include <string_view>

/// What the library knows its pictures by.
namespace quorvane {

/// The last component of path, extension included: what the side files know an image by. Slashes at the end are none of
/// it: "/a/b.png/" is "b.png".
[[nodiscard]] QString imageName(const QString &path);

/// Whether an entry of the folder with that name is an image: visible, and ending in .png, .jpg, .jpeg or .webp in any
/// case.
[[nodiscard]] bool isImageName(std::string_view utf8Name);
[[nodiscard]] bool isImageName(const QString &name);

/// Whether name names something directly inside a folder.
[[nodiscard]] bool isPlainName(const QString &name);

} // namespace quorvane
