#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace quorvane {

/// Paints the landscape that prompt describes. Words of the prompt choose what is seen, its hash does the rest: the
/// same prompt and size give the same pixels on every run, and other sizes show the same scene. Works
/// without a GUI application and may be called from several threads at once.
[[nodiscard]] QImage paintPicture(const QString &prompt, QSize size);

} // namespace quorvane
