#pragma once

#include "Manager/Operation.h"

#include <vector>

namespace quorvane {

/// The operations that run, and what can be told of all of them together: what is published is the newest one's, so
/// that the end of another hides nothing. Belongs to the main thread.
class Operations
{
  public:
    /// The number that the next operation gets.
    [[nodiscard]] quint64 next() const { return m_next; }

    [[nodiscard]] OperationRef begin(Operation::Kind kind);

    /// The operation runs no more.
    void end(const OperationRef &operation);

    /// Whether a picture is being made: a generation or an upscale runs.
    [[nodiscard]] bool isAnyMaking() const;

    /// The picture that the newest upscale enlarges; empty while none runs.
    [[nodiscard]] QString upscaling() const;

    /// How far the newest enlargement on this machine is; nothing while none runs.
    [[nodiscard]] std::optional<UpscaleProgress> progress() const;

    /// Asks every operation to stop. reason is for the user.
    void stopAll(const QString &reason);

    /// Asks those to stop that make a picture and can still be cancelled, because the user wants no more of them.
    /// Whether there were any.
    bool cancelMaking();

    /// The picture at that path is being deleted: asks those to stop that enlarge it.
    void stopEnlarging(const QString &path, const QString &reason);

  private:
    std::vector<OperationRef> m_running; ///< In the order in which they were asked for.
    quint64 m_next = 1;
};

/// Takes over how far the operation is now. A share that is smaller than the one before leaves that standing.
void advance(Operation &operation, UpscaleProgress progress);

/// Asks the operation to stop; the first reason is the one that stays.
void stop(Operation &operation, const QString &reason);

} // namespace quorvane
