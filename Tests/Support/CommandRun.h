#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <gtest/gtest.h>

namespace quorvane {

/// One run of a program to its end.
struct CommandRun
{
    int status = -1; ///< Exit status; -1 when it crashed or did not end.
    QByteArray output;
    QByteArray errors;

    /// The one JSON value on standard output.
    [[nodiscard]] QJsonValue json() const
    {
        EXPECT_EQ(output.count('\n'), 1) << output.constData();
        return QJsonDocument::fromJson("[" + output + "]").array().first();
    }
};

/// For runs that are alone with the image services at address: on no desktop and no bus, and with a command that takes
/// every picture for the wallpaper.
[[nodiscard]] inline QProcessEnvironment lonelyEnvironment(const QString &address)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "SWAYSOCK", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}) {
        environment.remove(QLatin1String(name));
    }
    for (const char *name : {"QUORVANE_GEMINI_BASE_URL", "QUORVANE_XAI_BASE_URL", "QUORVANE_OPENAI_BASE_URL"}) {
        environment.insert(QLatin1String(name), address);
    }
    environment.insert(QStringLiteral("QUORVANE_WALLPAPER_COMMAND"), QStringLiteral("/bin/true"));
    return environment;
}

[[nodiscard]] inline CommandRun runProgram(const QString &program, const QStringList &arguments,
                                           const QProcessEnvironment &environment, const QByteArray &input = {},
                                           const QString &workingFolder = {})
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(workingFolder);
    process.start();
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

/// The same for the program "quorvane".
[[nodiscard]] inline CommandRun runQuorvane(const QStringList &arguments, const QProcessEnvironment &environment,
                                            const QByteArray &input = {}, const QString &workingFolder = {})
{
    return runProgram(QStringLiteral(QUORVANE_PROGRAM), arguments, environment, input, workingFolder);
}

} // namespace quorvane
