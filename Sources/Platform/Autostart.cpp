#include "Platform/Autostart.h"

#include "Platform/AtomicFile.h"
#include "Platform/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace quorvane {

namespace {

/// A word of Exec=, which is no shell line: quoted, with the characters escaped that the desktop entry rules name, and
/// once more for being a string value; a percent sign would begin a field code.
QString execWord(const QString &text)
{
    QString word;
    for (const QChar character : text) {
        if (QStringLiteral("\"`$\\").contains(character)) {
            word += QLatin1Char('\\');
        }
        word += character;
        if (character == QLatin1Char('%')) {
            word += character;
        }
    }
    return QLatin1Char('"') + word.replace(QLatin1Char('\\'), QLatin1String("\\\\")) + QLatin1Char('"');
}

} // namespace

bool setAutostart(Autostart autostart)
{
    const QString folder = Paths::configHome() + QStringLiteral("/autostart");
    const QString path = folder + QStringLiteral("/app.quorvane.Quorvane.desktop");
    if (autostart == Autostart::Off) {
        return QFile::remove(path) || !QFile::exists(path);
    }
    const QString entry = QStringLiteral("[Desktop Entry]\n"
                                         "Type=Application\n"
                                         "Name=Quorvane\n"
                                         "Icon=app.quorvane.Quorvane\n"
                                         "Exec=%1 --hidden\n")
                              .arg(execWord(QCoreApplication::applicationFilePath()));
    return QDir().mkpath(folder) && writeFileAtomically(path, entry.toUtf8());
}

} // namespace quorvane
