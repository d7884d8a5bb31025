#pragma once

#include "Support/Desktop/LoginSession.h"

#include <memory>

namespace quorvane {

/// A login session in which the program is launched as far as the old keys are concerned.
class KeyringSession : public LoginSession
{
  public:
    /// The helper with arguments; it must end well.
    [[nodiscard]] bool runHelper(const QStringList &arguments);
    /// Whether a launch waits for the answers of a busy machine, or is the program's own.
    enum class Patience { Ours, Long };
    /// Moves the keys in a process of its own; the milliseconds it took, or nothing when it did not end well.
    [[nodiscard]] std::optional<int> migrate(Patience patience = Patience::Long);
    /// With the program's own patience, three times where nothing changes, and the shortest: a busy machine may hold up
    /// one launch or two.
    [[nodiscard]] std::optional<int> quickestMigration();
    /// As migrate(), in two steps; the process lives on in between.
    [[nodiscard]] std::optional<int> beginMigration(Patience patience = Patience::Long);
    [[nodiscard]] bool endMigration();

  private:
    std::unique_ptr<QProcess> m_migration;
};

} // namespace quorvane
