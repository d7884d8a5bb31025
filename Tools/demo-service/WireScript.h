#pragma once

#include "demo-service/HttpMessage.h"

#include <chrono>
#include <utility>
#include <variant>
#include <vector>

namespace quorvane {

/// What the service does on a connection once a request is read, step by step. A script that runs to its end leaves the
/// connection open for the next request. Every way to misbehave is such a script, and a test may write its own.
class WireScript
{
  public:
    struct Write ///< Sends bytes, as fast as the peer takes them.
    {
        QByteArray bytes;
    };
    struct Drip ///< Sends bytes in portions with a pause after each.
    {
        QByteArray bytes;
        qsizetype portion;
        std::chrono::milliseconds pause;
    };
    struct Repeat ///< Sends bytes again and again for as long as the peer takes them.
    {
        QByteArray bytes;
    };
    struct Hang ///< Sends nothing more and keeps the connection open.
    {
    };
    struct Close ///< Closes in order, after everything was sent.
    {
    };
    struct Reset ///< Ends the connection with a TCP reset, after everything was handed to the network.
    {
    };
    using Step = std::variant<Write, Drip, Repeat, Hang, Close, Reset>;

    WireScript() = default;

    /// Sends answer as it should be sent.
    WireScript(const HttpAnswer &answer) { write(answer.head()).write(answer.body); } // NOLINT: the conversion is meant

    WireScript &write(QByteArray bytes) { return add(Write{std::move(bytes)}); }
    WireScript &drip(QByteArray bytes, qsizetype portion, std::chrono::milliseconds pause)
    {
        return add(Drip{std::move(bytes), portion, pause});
    }
    WireScript &repeat(QByteArray bytes) { return add(Repeat{std::move(bytes)}); }
    WireScript &hang() { return add(Hang()); }
    WireScript &close() { return add(Close()); }
    WireScript &reset() { return add(Reset()); }

    [[nodiscard]] const std::vector<Step> &steps() const { return m_steps; }

  private:
    template <typename Kind> WireScript &add(Kind step)
    {
        m_steps.emplace_back(std::move(step));
        return *this;
    }

    std::vector<Step> m_steps;
};

} // namespace quorvane
