#include "Storage/ImageNames.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::array<std::string_view, 4> kExtensions{"png", "jpg", "jpeg", "webp"};

} // namespace

QString imageName(const QString &path)
{
    qsizetype end = path.size();
    while (end > 0 && path.at(end - 1) == '/'_L1) {
        --end;
    }
    // lastIndexOf counts a negative start from the end.
    const qsizetype slash = end == 0 ? -1 : path.lastIndexOf('/'_L1, end - 1);
    return path.mid(slash + 1, end - slash - 1);
}

bool isImageName(std::string_view utf8Name)
{
    const std::size_t dot = utf8Name.rfind('.');
    if (utf8Name.starts_with('.') || dot == std::string_view::npos) {
        return false;
    }
    const std::string_view extension = utf8Name.substr(dot + 1);
    return std::any_of(kExtensions.begin(), kExtensions.end(), [extension](std::string_view known) {
        return extension.size() == known.size() && qstrnicmp(extension.data(), known.data(), known.size()) == 0;
    });
}

bool isImageName(const QString &name)
{
    const QByteArray utf8 = name.toUtf8();
    return isPlainName(name) && isImageName(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

bool isPlainName(const QString &name)
{
    return !name.isEmpty() && name != u"."_s && name != u".."_s && !name.contains('/'_L1) &&
           !name.contains(QChar(u'\0'));
}

} // namespace quorvane
