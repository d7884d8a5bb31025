#pragma once

#include "Platform/Pictures/HandedPicture.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quorvane {

/// Which file a desktop is given for a picture. A desktop keeps what it once read under a name, so the same path with
/// new content needs a copy under a new name; and it may read fewer formats than we do, or trip over a name.
class PictureHandover
{
  public:
    /// What a desktop can take.
    struct Rules
    {
        QStringList loaded; ///< The files that it has read, as far as it tells.
        TakesPath takesPath = [](const QString & /*path*/) { return true; };
    };

    /// The file for the picture at path: the picture itself, what it was handed as before if its content is still the
    /// same, or a new copy. Decodes it once, because most desktops say nothing about one that they cannot read.
    [[nodiscard]] Result<HandedPicture> handOver(const QString &path, const Rules &rules);

    /// Once the desktop shows it.
    void succeeded(const QString &path, const HandedPicture &handed);

    /// Once it will not show it: deletes the copy, unless it was shown before.
    void failed(const HandedPicture &handed) const;

  private:
    struct Shown
    {
        QString path;
        QByteArray content; ///< Tells one content from another.
        QString handedPath;
    };
    Shown m_shown;
};

} // namespace quorvane
