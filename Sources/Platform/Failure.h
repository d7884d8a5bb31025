#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace quorvane {

/// What went wrong, in words for the user: one line, whole, without a full stop at the end where it is a fragment.
/// Never empty.
struct [[nodiscard]] Failure
{
    QString words;

    friend bool operator==(const Failure &, const Failure &) = default;
};

/// What an operation gives that may fail: a value, or a Failure. True when it succeeded:
///
///     if (const Result<QByteArray> bytes = readWhole(path)) { use(*bytes); } else { tell(bytes.failure().words); }
///
/// An operation's end is never told by an empty text or an absent one: what may be absent is a std::optional.
template <typename T = void> class [[nodiscard]] Result
{
  public:
    Result(T value) // NOLINT(google-explicit-constructor): a value is a success, as it is with std::optional.
        : m_value(std::move(value))
    {
    }
    Result(Failure failure) // NOLINT(google-explicit-constructor): so that a function can return its failure.
        : m_failure(std::move(failure))
    {
    }

    [[nodiscard]] explicit operator bool() const { return m_value.has_value(); }

    /// Only after success.
    [[nodiscard]] const T &operator*() const { return *m_value; }   // NOLINT(bugprone-unchecked-optional-access)
    [[nodiscard]] T &operator*() { return *m_value; }               // NOLINT(bugprone-unchecked-optional-access)
    [[nodiscard]] const T *operator->() const { return &*m_value; } // NOLINT(bugprone-unchecked-optional-access)

    /// Only after failure.
    [[nodiscard]] const Failure &failure() const { return m_failure; }

  private:
    std::optional<T> m_value;
    Failure m_failure;
};

/// The same for operations that have nothing to give: `return kDone;` or `return Failure{words};`.
template <> class [[nodiscard]] Result<void>
{
  public:
    Result() = default;
    Result(Failure failure) // NOLINT(google-explicit-constructor): so that a function can return its failure.
        : m_failure(std::move(failure))
    {
    }

    [[nodiscard]] explicit operator bool() const { return !m_failure; }

    /// Only after failure.
    [[nodiscard]] const Failure &failure() const { return *m_failure; } // NOLINT(bugprone-unchecked-optional-access)

    friend bool operator==(const Result &, const Result &) = default;

  private:
    std::optional<Failure> m_failure;
};

/// Success of an operation that has nothing to give.
inline const Result<> kDone;

} // namespace quorvane
