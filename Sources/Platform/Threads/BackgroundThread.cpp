#include "Platform/Threads/BackgroundThread.h"

#include <QFile>
#include <QSet>

#include <algorithm>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kBackgroundNiceness = 10;

} // namespace

void lowerThreadPriority()
{
    // On Linux niceness belongs to the thread, whatever the name of the constant says, and new threads inherit it.
    const auto thread = static_cast<id_t>(gettid());
    if (getpriority(PRIO_PROCESS, thread) < kBackgroundNiceness) {
        setpriority(PRIO_PROCESS, thread, kBackgroundNiceness);
    }
}

int physicalCores()
{
    cpu_set_t allowed;
    if (sched_getaffinity(0, sizeof allowed, &allowed) != 0) {
        return 1;
    }
    QSet<QByteArray> cores;
    for (int cpu = 0; cpu < CPU_SETSIZE; ++cpu) {
        if (!CPU_ISSET(cpu, &allowed)) {
            continue;
        }
        QFile siblings(u"/sys/devices/system/cpu/cpu%1/topology/thread_siblings_list"_s.arg(cpu));
        cores.insert(siblings.open(QIODevice::ReadOnly) ? siblings.readAll() : QByteArray::number(cpu));
    }
    return std::max(1, static_cast<int>(cores.size()));
}

} // namespace quorvane
