#include "InstalledTree.h"

#include "Support/WaitFor.h"

#include <QProcess>

namespace quorvane {

void InstalledTest::SetUp()
{
    const CommandRun install =
        runOther(QStringLiteral(CMAKE_PROGRAM), {QStringLiteral("--install"), QStringLiteral(BUILD_FOLDER),
                                                 QStringLiteral("--prefix"), m_prefix.path()});
    ASSERT_EQ(install.status, 0) << install.errors.constData();
    QProcessEnvironment &environment = session.environment();
    environment.insert(QStringLiteral("QUORVANE_WALLPAPER_COMMAND"), QStringLiteral("/bin/true"));
    environment.insert(QStringLiteral("XDG_DATA_DIRS"),
                       installed(QStringLiteral("share")) + QStringLiteral(":/usr/local/share:/usr/share"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
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
