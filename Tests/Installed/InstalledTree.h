#pragma once

#include "Support/CommandRun.h"
#include "Support/Desktop/LoginSession.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The program installed under a prefix of the test's own, and a session to use it in that knows of no other.
class InstalledTest : public testing::Test
{
  protected:
    void SetUp() override;

    /// A path below the prefix.
    [[nodiscard]] QString installed(const QString &path) const { return m_prefix.filePath(path); }
    [[nodiscard]] QString program() const { return installed(u"bin/quorvane"_s); }

    /// Runs the installed program, or another, to its end, while the test's event loop goes on.
    [[nodiscard]] CommandRun run(const QStringList &arguments, const QByteArray &input = {});
    [[nodiscard]] CommandRun runOther(const QString &other, const QStringList &arguments, const QByteArray &input = {});

    LoginSession session;

  private:
    QTemporaryDir m_prefix;
};

/// Skips the test where the program is not installed on this system.
#define SKIP_WITHOUT(name)                                                                                             \
    if (QStandardPaths::findExecutable(QStringLiteral(name)).isEmpty()) {                                              \
        GTEST_SKIP() << name << " is not installed";                                                                   \
    }

} // namespace quorvane
