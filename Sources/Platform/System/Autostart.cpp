#include "Platform/System/Autostart.h"

#include "Platform/Bus/Sandbox.h"
#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/Paths.h"
#include "Platform/System/AutostartPortal.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Autostart)
};

const QString kEntry = u"/autostart/app.quorvane.Quorvane.desktop"_s;

/// A word of Exec=, which is no shell line: quoted, with the characters escaped that the desktop entry rules name, and
/// once more for being a string value; a percent sign would begin a field code.
QString execWord(const QString &text)
{
    QString word;
    for (const QChar character : text) {
        if (u"\"`$\\"_s.contains(character)) {
            word += '\\'_L1;
        }
        word += character;
        if (character == '%'_L1) {
            word += character;
        }
    }
    word.replace('\\'_L1, "\\\\"_L1);
    word.replace('\n'_L1, "\\n"_L1);
    word.replace('\r'_L1, "\\r"_L1);
    return '"'_L1 + word + '"'_L1;
}

QString execLine(const QString &program)
{
    // GLib looks for the first word on disk before it makes one percent sign of two, and then refuses the entry.
    const QString before = program.contains('%'_L1) ? u"env "_s : QString();
    return before + execWord(program) + u" --hidden"_s;
}

bool isInSystemFolders()
{
    QString folders = QFile::decodeName(qgetenv("XDG_CONFIG_DIRS"));
    if (folders.isEmpty()) {
        folders = u"/etc/xdg"_s;
    }
    const QStringList all = folders.split(':'_L1, Qt::SkipEmptyParts);
    return std::any_of(all.begin(), all.end(), [](const QString &folder) { return QFile::exists(folder + kEntry); });
}

} // namespace

Result<> setAutostart(Autostart autostart)
{
    if (isSandboxed()) { // No desktop reads the configuration folder of a sandbox.
        return askPortalForAutostart(MessageBus(MessageBus::sessionAddress()), autostart);
    }
    return writeAutostartEntry(autostart, QCoreApplication::applicationFilePath());
}

QString autostartEntryPath()
{
    return Paths::configHome() + kEntry;
}

Result<> writeAutostartEntry(Autostart autostart, const QString &program)
{
    const Failure failure{Tr::tr("could not write the autostart entry")};
    const QString path = autostartEntryPath();
    QString entry = u"[Desktop Entry]\n"
                    "Type=Application\n"
                    "Name=Quorvane\n"
                    "Icon=app.quorvane.Quorvane\n"
                    "Exec=%1\n"_s.arg(execLine(program));
    if (autostart == Autostart::Off) {
        if (!isInSystemFolders()) {
            return QFile::remove(path) || !QFile::exists(path) ? kDone : failure;
        }
        entry += u"Hidden=true\n"_s;
    }
    return QDir().mkpath(QFileInfo(path).path()) && writeFileAtomically(path, entry.toUtf8()) ? kDone : failure;
}

} // namespace quorvane
