#pragma once

#include <QString>

namespace quorvane {

/// By whom a picture is enlarged.
enum class UpscaleMethod {
    Gemini, ///< The service of that name, with the user's key. What holds where nothing else is chosen.
    Local   ///< This machine.
};

/// The text that stands for it in the settings, in JSON and on the command line. It is data and never translated.
[[nodiscard]] inline QString idOf(UpscaleMethod method)
{
    using namespace Qt::StringLiterals;
    return method == UpscaleMethod::Local ? u"local"_s : u"gemini"_s;
}

/// The method that id stands for; Gemini where it stands for none.
[[nodiscard]] inline UpscaleMethod upscaleMethodOf(const QString &id)
{
    return id == idOf(UpscaleMethod::Local) ? UpscaleMethod::Local : UpscaleMethod::Gemini;
}

} // namespace quorvane
