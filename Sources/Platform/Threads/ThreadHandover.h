#pragma once

#if defined(__SANITIZE_THREAD__)
#define QUORVANE_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define QUORVANE_THREAD_SANITIZER
#endif
#endif

#ifdef QUORVANE_THREAD_SANITIZER
extern "C" void __tsan_acquire(void *address);
extern "C" void __tsan_release(void *address);
#endif

/// Tells the thread sanitizer that what one thread did before giving() is seen by another after taking() the same
/// address. The order itself comes from Qt's queues and locks, which a packaged Qt does not show to the sanitizer. In
/// every other build both do nothing.
namespace quorvane::ThreadHandover {

inline void giving([[maybe_unused]] void *address)
{
#ifdef QUORVANE_THREAD_SANITIZER
    __tsan_release(address);
#endif
}

inline void taking([[maybe_unused]] void *address)
{
#ifdef QUORVANE_THREAD_SANITIZER
    __tsan_acquire(address);
#endif
}

} // namespace quorvane::ThreadHandover
