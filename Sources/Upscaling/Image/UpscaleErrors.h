#pragma once

#include <QCoreApplication>

#include <stdexcept>

namespace quorvane {

/// The network cannot be used, or failed while it ran: what() is the engine's own text, or ours saying what was found
/// and what is needed, in UTF-8.
struct ModelError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// The upscale ended early because it was asked to stop.
struct UpscaleStopped : std::runtime_error
{
    UpscaleStopped()
        : std::runtime_error(QCoreApplication::translate("UpscaleErrors", "The upscale was stopped").toStdString())
    {
    }
};

} // namespace quorvane
