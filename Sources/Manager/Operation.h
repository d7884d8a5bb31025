#pragma once

#include "Upscaling/LocalUpscaler.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <stop_token>

namespace quorvane {

/// How an operation ended: its own outcome, whatever else ran at the same time. Texts are empty where there is none.
struct OperationResult
{
    quint64 operation = 0; ///< What WallpaperManager::nextOperation() was when it was asked for.
    bool isTimed = false;  ///< The schedule asked for it, not the user.
    QString status;        ///< Its last words for the user.
    bool isError = false;
    QString file;         ///< The picture that was made, or set.
    QString original;     ///< The picture that file was enlarged from.
    QStringList problems; ///< What was not kept although the operation went on, in words for the user.
};

/// An operation from the moment it is asked for to its end. Belongs to the main thread.
struct Operation
{
    enum class Kind { Generation, Upscale, Setting, LibraryChange };

    Kind kind = Kind::LibraryChange;
    OperationResult result;                  ///< What it would end with now.
    QString source;                          ///< The path of the picture that it enlarges, once there is one.
    std::optional<UpscaleProgress> progress; ///< Of its enlargement on this machine; nothing while none runs.
    std::stop_source stop;                   ///< Asked to stop when what it works for is no longer wanted.
    QString stopReason;                      ///< For the user; says why, once it was asked to stop.
    bool isSourceDeleted = false;            ///< That is why it was asked to.
    bool canBeCancelled = true;              ///< Until what it made is on its way to the disk and the screens.
    bool isCancelled = false;                ///< The user is why it was asked to stop.
    bool isAsking = false;                   ///< A service has been asked for a picture, which may cost.

    [[nodiscard]] bool isStopped() const { return stop.stop_requested(); }
};

/// How the tasks of an operation hold it.
using OperationRef = std::shared_ptr<Operation>;

} // namespace quorvane
