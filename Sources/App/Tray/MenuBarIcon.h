#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The menu bar's icon: a template, that is one colour and transparency, 22 x 22 points.
struct MenuBarIcon
{
    QString name;         ///< In the icon theme, where the program is installed; panels tint that one. Else empty.
    QList<QImage> images; ///< For scales 1 and 2; light with a dark rim, since a panel may be of either kind.
};

/// Draws "MenuBarIcon.svg" of folder, or "sparkles.svg" where that is missing. A program without either is broken and
/// ends.
[[nodiscard]] MenuBarIcon menuBarIcon(const QString &folder = u":/icons"_s);

} // namespace quorvane
