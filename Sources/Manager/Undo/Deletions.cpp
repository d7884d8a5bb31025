#include "Manager/Undo/Deletions.h"

#include "Manager/Library/Library.h"

#include <utility>

namespace quorvane {

Deletions::Deletions(Library &library, TaskScope &tasks, Clock *clock, QObject *parent)
    : QObject(parent)
    , m_library(library)
    , m_tasks(tasks)
    , m_undo(clock)
{
}

void Deletions::remove(const QStringList &urls)
{
    Q_EMIT removing(urls);
    m_tasks.start(deleting(urls));
}

QCoro::Task<> Deletions::deleting(QStringList urls)
{
    Deletion::Outcome outcome = co_await m_library.deletingRevocably(urls);
    if (outcome.deletion) {
        m_undo.offer(step(std::move(outcome.deletion), urls));
    }
    Q_EMIT ended(outcome.result);
}

Undo::Step Deletions::step(const std::shared_ptr<Deletion> &deletion, const QStringList &urls)
{
    return {[this, deletion, urls] { m_tasks.start(bringingBack(deletion, urls)); },
            [this, deletion] { m_tasks.start(m_library.forgetting(deletion)); }};
}

QCoro::Task<> Deletions::bringingBack(std::shared_ptr<Deletion> deletion, QStringList urls)
{
    const Result<> restored = co_await m_library.bringingBack(deletion);
    if (restored) {
        Q_EMIT broughtBack(urls);
    } else {
        // What is wanted back is not thrown away because the disk was full or the name taken.
        m_undo.offerAgain(step(deletion, urls));
    }
    Q_EMIT ended(restored);
}

} // namespace quorvane
