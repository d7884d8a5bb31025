#include "Platform/System/Autostart.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/System/AutostartPortal.h"
#include "Platform/Files/Paths.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Autostart)
};

const QString kEntry = QStringLiteral("/autostart/app.quorvane.Quorvane.desktop");

/// The program in a sandbox has a configuration folder of its own, which no desktop reads.
bool isSandboxed()
{
    return QFile::exists(QStringLiteral("/.flatpak-info"));
}

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
    word.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    word.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    word.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    return QLatin1Char('"') + word + QLatin1Char('"');
}

QString execLine(const QString &program)
{
    // GLib looks for the first word on disk before it makes one percent sign of two, and then refuses the entry.
    const QString before = program.contains(QLatin1Char('%')) ? QStringLiteral("env ") : QString();
    return before + execWord(program) + QStringLiteral(" --hidden");
}

bool isInSystemFolders()
{
    QString folders = QFile::decodeName(qgetenv("XDG_CONFIG_DIRS"));
    if (folders.isEmpty()) {
        folders = QStringLiteral("/etc/xdg");
    }
    const QStringList all = folders.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    return std::any_of(all.begin(), all.end(), [](const QString &folder) { return QFile::exists(folder + kEntry); });
}

} // namespace

std::optional<QString> setAutostart(Autostart autostart)
{
    if (isSandboxed()) {
        return askPortalForAutostart(QDBusConnection::sessionBus(), autostart);
    }
    if (!writeAutostartEntry(autostart, QCoreApplication::applicationFilePath())) {
        return Tr::tr("could not write the autostart entry");
    }
    return std::nullopt;
}

bool writeAutostartEntry(Autostart autostart, const QString &program)
{
    const QString path = Paths::configHome() + kEntry;
    QString entry = QStringLiteral("[Desktop Entry]\n"
                                   "Type=Application\n"
                                   "Name=Quorvane\n"
                                   "Icon=app.quorvane.Quorvane\n"
                                   "Exec=%1\n")
                        .arg(execLine(program));
    if (autostart == Autostart::Off) {
        if (!isInSystemFolders()) {
            return QFile::remove(path) || !QFile::exists(path);
        }
        entry += QStringLiteral("Hidden=true\n");
    }
    return QDir().mkpath(QFileInfo(path).path()) && writeFileAtomically(path, entry.toUtf8());
}

} // namespace quorvane
