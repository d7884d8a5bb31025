#pragma once

#include "Manager/Undo/Undo.h"
#include "Platform/Failure.h"
#include "Platform/Threads/TaskScope.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace quorvane {

class Deletion;
class Library;

/// What is deleted in the windows: gone at once, and for a while it can be brought back. Belongs to the main thread.
class Deletions : public QObject
{
    Q_OBJECT

  public:
    /// library and clock outlive it, and tasks is drained before it goes. Without a clock everything is for good.
    Deletions(Library &library, TaskScope &tasks, Clock *clock, QObject *parent = nullptr);

    /// Deletes the pictures at these paths, and their enlarged partners. One step to be taken back.
    void remove(const QStringList &urls);

    [[nodiscard]] Undo &undo() { return m_undo; }

  Q_SIGNALS:
    /// These pictures are about to go.
    void removing(const QStringList &urls);
    /// A deletion, or what brings it back, has ended, and the library was read again.
    void ended(const Result<> &result);
    /// These pictures are there again.
    void broughtBack(const QStringList &urls);

  private:
    [[nodiscard]] QCoro::Task<> deleting(QStringList urls);
    [[nodiscard]] QCoro::Task<> bringingBack(std::shared_ptr<Deletion> deletion, QStringList urls);
    [[nodiscard]] Undo::Step step(const std::shared_ptr<Deletion> &deletion, const QStringList &urls);

    Library &m_library;
    TaskScope &m_tasks;
    Undo m_undo;
};

} // namespace quorvane
