#pragma once

#include <QByteArray>
#include <QFile>

#include <malloc.h>

namespace quorvane {

using namespace Qt::StringLiterals;

/// How far the resident memory of this process rises above what it was at the beginning.
class PeakMemory
{
  public:
    PeakMemory()
    {
        ::malloc_trim(0);
        QFile reset(u"/proc/self/clear_refs"_s);
        if (reset.open(QIODevice::WriteOnly)) {
            reset.write("5"); // Resets the high-water mark.
        }
        reset.close();
        m_before = highWaterBytes();
    }

    [[nodiscard]] qint64 riseBytes() const { return highWaterBytes() - m_before; }

    /// How much this process has had resident at most, since the last such object was made.
    [[nodiscard]] static qint64 highWaterBytes()
    {
        QFile status(u"/proc/self/status"_s);
        (void)status.open(QIODevice::ReadOnly);
        const QByteArray text = status.readAll();
        const qsizetype at = text.indexOf("VmHWM:") + 6;
        constexpr qint64 kKibibyte = 1024;
        return text.sliced(at, text.indexOf("kB", at) - at).trimmed().toLongLong() * kKibibyte;
    }

  private:
    qint64 m_before = 0;
};

} // namespace quorvane
