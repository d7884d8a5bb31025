#pragma once

#include "Platform/Failure.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

/// A picture that is to come into the library.
struct NewPicture
{
    QString name; ///< Its file name; a picture of that name is replaced.
    QByteArray bytes;
    std::optional<QString> prompt; ///< Nothing where none is to be recorded.
    QString
        original; ///< The path of the picture that it is the enlarged copy of; or empty. One from elsewhere is none.
};

/// A picture that came into the library.
struct KeptPicture
{
    QString path;
    QStringList problems; ///< What could not be recorded of it, in words for the user.
};

/// Writes the picture, then its prompt and its link. Fails when the picture itself could not be written: then nothing
/// is recorded either. A picture that takes its own original's name replaces it and is linked to itself. Any thread.
[[nodiscard]] Result<KeptPicture> keepPicture(const NewPicture &picture);

/// The prompt that is recorded for the picture, if it is one of the library. Any thread.
[[nodiscard]] std::optional<QString> recordedPrompt(const QString &image);

} // namespace quorvane
