#pragma once

#include <QStringList>

class QCoreApplication;

namespace quorvane {

/// The languages that the user wants to read, best first, as "de-DE". None where the environment asks for "C", even if
/// LANGUAGE names others, as all programs that use gettext understand it.
[[nodiscard]] QStringList wantedLanguages();

/// The catalogue for the first of the languages that has one, as "zh_CN"; "en" where none has.
[[nodiscard]] QString catalogueFor(const QStringList &languages);

/// Whether the first of the languages is written from right to left.
[[nodiscard]] Qt::LayoutDirection directionFor(const QStringList &languages);

/// From here on the application speaks the first of the languages that it can, and so does Qt where it is installed
/// with its own catalogues. Texts that were translated before stay as they are.
void installTranslations(QCoreApplication &application, const QStringList &languages);

} // namespace quorvane
