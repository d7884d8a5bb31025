#pragma once

#include "Platform/Failure.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The scripts for plasmashell's evaluateScript, and what they print.
namespace quorvane::PlasmaScript {

/// What one desktop has for its background. There are more desktops than screens: each activity has its own.
struct Desktop
{
    int screen = -1; ///< Below 0: of a screen that is not there, or of another activity.
    QString plugin;
    QString image; ///< A URL, or a path where another program wrote one.
};

/// What plasmashell has at one moment.
struct Report
{
    int screenCount = 0;
    QList<Desktop> desktops;

    /// The screens that show a desktop now.
    [[nodiscard]] int visible() const;

    /// The local files that the desktops show, whether visible or not.
    [[nodiscard]] QStringList files() const;

    /// Fails where the image is not the background of every screen.
    [[nodiscard]] Result<> isEverywhere(const QString &imageUrl) const;
};

/// Prints a report and changes nothing.
[[nodiscard]] QString reading();

/// Makes the image the background of every visible desktop, cropped to fill it, and prints a report.
[[nodiscard]] QString setting(const QString &imageUrl);

/// Nothing when it is no report.
[[nodiscard]] std::optional<Report> reportOf(const QString &printed);

/// The percent-encoded URL of a file, which no name can break out of.
[[nodiscard]] QString urlOf(const QString &path);

} // namespace quorvane::PlasmaScript
