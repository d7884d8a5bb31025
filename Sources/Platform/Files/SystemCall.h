#pragma once

#include <QString>

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace quorvane {

/// Makes a system call, and again for as long as a signal interrupts it. call returns -1 and sets errno as they do.
template <typename Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// The system's words for an errno.
[[nodiscard]] inline QString systemWords(int error)
{
    return qt_error_string(error);
}

/// An open file, closed at the end.
class FileDescriptor
{
  public:
    /// descriptor may be -1: nothing is open then.
    explicit FileDescriptor(int descriptor = -1)
        : m_descriptor(descriptor)
    {
    }
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_descriptor(other.release())
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        if (this != &other) {
            reset();
            m_descriptor = other.release();
        }
        return *this;
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }

    /// Gives it away: the caller closes it.
    [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }

  private:
    void reset() const
    {
        if (m_descriptor >= 0) {
            // Linux has closed it even where it says that a signal came.
            ::close(m_descriptor);
        }
    }

    int m_descriptor;
};

} // namespace quorvane
