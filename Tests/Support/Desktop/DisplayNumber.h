#pragma once

#include <QByteArray>

namespace quorvane {

/// The number of an X server's display, nobody else's for as long as the object lives, whatever becomes of the server:
/// one that is killed would otherwise lend its number to a neighbour, and who asks for the dead one would be answered.
class DisplayNumber
{
  public:
    DisplayNumber();
    ~DisplayNumber(); ///< Also removes what a killed server left behind.
    DisplayNumber(const DisplayNumber &) = delete;
    DisplayNumber &operator=(const DisplayNumber &) = delete;
    DisplayNumber(DisplayNumber &&) = delete;
    DisplayNumber &operator=(DisplayNumber &&) = delete;

    /// For DISPLAY and as a server's first argument, ":" and the number; empty when none is free.
    [[nodiscard]] QByteArray display() const { return m_display; }

  private:
    QByteArray m_display;
    int m_socket = -1;
};

} // namespace quorvane
