#pragma once

#include "RealDesktop.h"

#include <functional>
#include <ostream>

namespace quorvane {

/// A desktop that can be tested here.
struct TestedDesktop
{
    QString name;
    bool isBig = true;
    QStringList programs; ///< All must be installed.
    std::function<QString()>
        missingBesides; ///< What is missing of what its kind of desktop needs; empty when nothing is.
    std::function<std::unique_ptr<RealDesktop>()> make;

    /// What is not installed; empty when it can run.
    [[nodiscard]] QString missing() const;

    /// How GoogleTest shows it.
    friend void PrintTo(const TestedDesktop &desktop, std::ostream *stream) { *stream << desktop.name.toStdString(); }
};

/// Every desktop that we have a way to set pictures in and that can be run for a test.
[[nodiscard]] const QList<TestedDesktop> &testedDesktops();

} // namespace quorvane
