#include "InstalledTree.h"

#include "Support/WaitFor.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace quorvane {

void InstalledTest::SetUp()
{
    const CommandRun install = runOther(QStringLiteral(CMAKE_PROGRAM),
                                        {u"--install"_s, QStringLiteral(BUILD_FOLDER), u"--prefix"_s, m_prefix.path()});
    ASSERT_EQ(install.status, 0) << install.errors.constData();
    QProcessEnvironment &environment = session.environment();
    environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, u"/bin/true"_s);
    environment.insert(u"XDG_DATA_DIRS"_s, installed(u"share"_s) + u":/usr/local/share:/usr/share"_s);
    environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    for (const char *name : {"SWAYSOCK", "LD_LIBRARY_PATH", "QML_IMPORT_PATH", "QML2_IMPORT_PATH", "QT_QPA_PLATFORM"}) {
        environment.remove(QLatin1String(name));
    }
}

CommandRun InstalledTest::run(const QStringList &arguments, const QByteArray &input)
{
    return runOther(program(), arguments, input);
}

CommandRun InstalledTest::runOther(const QString &other, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.setProcessEnvironment(session.environment());
    process.start(other, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended =
        waitFor([&process] { return process.state() == QProcess::NotRunning; }, std::chrono::seconds(60)) &&
        process.exitStatus() == QProcess::NormalExit;
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace quorvane
