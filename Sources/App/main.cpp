#include "App/CommandLine.h"
#include "App/Commands.h"
#include "App/Console.h"

#include <QCoreApplication>
#include <QNetworkProxyFactory>

#include <variant>

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Quorvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    const QCoreApplication application(argc, argv);
    QNetworkProxyFactory::setUseSystemConfiguration(true);

    const auto parsed = quorvane::parseCommandLine(QCoreApplication::arguments().sliced(1));
    if (const auto *problem = std::get_if<QString>(&parsed)) {
        quorvane::Console::printError(QStringLiteral("quorvane: ") + *problem);
        return quorvane::kWrongCommandLine;
    }
    return quorvane::runCommand(std::get<quorvane::CommandLine>(parsed));
}
