#include "Manager/Operations.h"

#include <QCoreApplication>

#include <algorithm>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Operations)
};

bool isMaking(const OperationRef &operation)
{
    return operation->kind == Operation::Kind::Generation || operation->kind == Operation::Kind::Upscale;
}

} // namespace

OperationRef Operations::begin(Operation::Kind kind)
{
    auto operation = std::make_shared<Operation>();
    operation->kind = kind;
    operation->result.operation = m_next++;
    m_running.push_back(operation);
    return operation;
}

void Operations::end(const OperationRef &operation)
{
    std::erase(m_running, operation);
}

bool Operations::isAnyMaking() const
{
    return std::any_of(m_running.begin(), m_running.end(), isMaking);
}

QString Operations::upscaling() const
{
    const auto newest = std::find_if(m_running.rbegin(), m_running.rend(),
                                     [](const OperationRef &each) { return each->kind == Operation::Kind::Upscale; });
    return newest == m_running.rend() ? QString() : (*newest)->source;
}

std::optional<UpscaleProgress> Operations::progress() const
{
    const auto newest = std::find_if(m_running.rbegin(), m_running.rend(),
                                     [](const OperationRef &each) { return each->progress.has_value(); });
    return newest == m_running.rend() ? std::nullopt : (*newest)->progress;
}

void Operations::stopAll(const QString &reason)
{
    for (const OperationRef &each : std::vector<OperationRef>(m_running)) {
        stop(*each, reason);
    }
}

bool Operations::cancelMaking()
{
    bool isAny = false;
    for (const OperationRef &each : std::vector<OperationRef>(m_running)) {
        if (isMaking(each) && each->canBeCancelled && !each->isStopped()) {
            isAny = true;
            each->isCancelled = true;
            stop(*each, each->isAsking ? Tr::tr("Cancelled. The service may charge for what it was asked for.")
                                       : Tr::tr("Cancelled."));
        }
    }
    return isAny;
}

void Operations::stopEnlarging(const QString &path, const QString &reason)
{
    for (const OperationRef &each : std::vector<OperationRef>(m_running)) {
        if (each->source == path) {
            each->isSourceDeleted = true;
            each->result.original.clear();
            stop(*each, reason);
        }
    }
}

void advance(Operation &operation, UpscaleProgress progress)
{
    if (const auto &last = operation.progress) {
        const bool isBehind =
            qint64(progress.tilesDone) * last->tilesTotal < qint64(last->tilesDone) * progress.tilesTotal;
        if (isBehind) {
            progress.tilesDone = last->tilesDone;
            progress.tilesTotal = last->tilesTotal;
        }
    }
    operation.progress = progress;
}

void stop(Operation &operation, const QString &reason)
{
    if (!operation.isStopped()) {
        operation.stopReason = reason;
        operation.stop.request_stop();
    }
}

} // namespace quorvane
