#pragma once

#include <QGuiApplication>

#include <chrono>

namespace quorvane {

/// The application, which notes how long its main thread works without a pause: what is handled in one turn of the
/// event loop, in time of the processor, which another program that is busy does not stretch. What a test does between
/// the turns is not counted.
class FrameWatch : public QGuiApplication
{
  public:
    /// The longest work since it was asked last.
    struct Longest
    {
        std::chrono::microseconds time{0};
        QString what; ///< Who took most of it, and which event it was.
    };

    FrameWatch(int &argc, char **argv);

    [[nodiscard]] static Longest takeLongest();
    /// What this thread has used of the processor.
    [[nodiscard]] static std::chrono::microseconds processorTime();

    bool notify(QObject *receiver, QEvent *event) override;

  private:
    void beginTurn();

    int m_depth = 0;
    std::chrono::microseconds m_turn{0}; ///< Of this turn.
    Longest m_heaviest;                  ///< In this turn.
    Longest m_longest;
};

} // namespace quorvane
