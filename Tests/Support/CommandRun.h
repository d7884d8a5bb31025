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

/// One run of the program "quorvane" to its end.
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

[[nodiscard]] inline CommandRun runQuorvane(const QStringList &arguments, const QProcessEnvironment &environment,
                                            const QByteArray &input = {}, const QString &workingFolder = {})
{
    QProcess process;
    process.setProgram(QStringLiteral(QUORVANE_PROGRAM));
    process.setArguments(arguments);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(workingFolder);
    process.start();
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace quorvane
