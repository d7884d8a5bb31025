#include "KeyringSession.h"

#include "Support/WaitFor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

bool KeyringSession::runHelper(const QStringList &arguments)
{
    return run(QStringLiteral(KEYRING_HELPER), arguments).first == 0;
}

std::optional<int> KeyringSession::migrate(Patience patience)
{
    const std::optional<int> milliseconds = beginMigration(patience);
    return endMigration() ? milliseconds : std::nullopt;
}

std::optional<int> KeyringSession::quickestMigration()
{
    std::optional<int> quickest = migrate(Patience::Ours);
    for (int launch = 0; launch < 2 && quickest; ++launch) {
        const std::optional<int> milliseconds = migrate(Patience::Ours);
        quickest = milliseconds ? std::optional(std::min(*quickest, *milliseconds)) : std::nullopt;
    }
    return quickest;
}

std::optional<int> KeyringSession::beginMigration(Patience patience)
{
    m_migration = std::make_unique<QProcess>();
    m_migration->setProcessEnvironment(environment());
    QStringList arguments{u"migrate"_s};
    if (patience == Patience::Long) {
        arguments.append(u"patient"_s);
    }
    m_migration->start(QStringLiteral(KEYRING_HELPER), arguments);
    // Not waitForReadyRead(): the test's own peers on the bus need the event loop to answer.
    QByteArray line;
    const bool printed = waitFor([&] {
        line += m_migration->readAllStandardOutput();
        return line.endsWith('\n') || m_migration->state() == QProcess::NotRunning;
    });
    bool isNumber = false;
    const int milliseconds = line.trimmed().toInt(&isNumber);
    return printed && isNumber ? std::optional(milliseconds) : std::nullopt;
}

bool KeyringSession::endMigration()
{
    m_migration->closeWriteChannel();
    return waitFor([this] { return m_migration->state() == QProcess::NotRunning; }) &&
           m_migration->exitStatus() == QProcess::NormalExit && m_migration->exitCode() == 0;
}

} // namespace quorvane
