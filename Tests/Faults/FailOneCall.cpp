// Loaded into the program with LD_PRELOAD: makes one call of the C library fail, the n-th of those that matter, and
// tells which calls there were. With that every way in which a disk, a full table of descriptors or a lack of memory
// can hurt is tried in turn, in the real program, without a line of it knowing.
//
//   FAIL_PROGRAM   only in this program (absolute path); its children run as they are
//   FAIL_UNDER     calls on files and folders below this one count, and on descriptors that are open there
//   FAIL_NTH       which of them fails, from 1; 0 counts only
//   FAIL_ERRNO     with which error; 0 with FAIL_SHORT=1 makes a write that takes half of the bytes
//   FAIL_REPORT    a file that gets a line for each call that counted: number, call, path
//   FAIL_ALLOCATION_NTH, FAIL_ALLOCATION_ABOVE   the same for allocations of more than so many bytes, reported as
//   "malloc"
//
// mkostemps() and opendir() are here besides the calls that they are made of, because the C library reaches those
// without its own names. What goes through none of these names is not seen: io_uring, copy_file_range, a mapped file.

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" {
void *__libc_malloc(std::size_t size);                          // NOLINT: the C library's own name
void *__libc_calloc(std::size_t count, std::size_t size);       // NOLINT
void *__libc_realloc(void *memory, std::size_t size);           // NOLINT
void *__libc_memalign(std::size_t alignment, std::size_t size); // NOLINT
}

namespace {

constexpr std::size_t kLongestPath = 4096;

struct Plan
{
    pid_t process = 0; ///< Nothing fails in any other: a child between its birth and its program runs on a tiny stack.
    char under[kLongestPath] = {};
    std::size_t underLength = 0;
    long nth = 0;
    int error = EIO;
    bool shortWrite = false;
    int report = -1;
    long allocationNth = 0;
    std::size_t allocationAbove = 0;
};

Plan thePlan;
std::atomic<long> theCount{0};
std::atomic<long> theAllocations{0};

long number(const char *name)
{
    const char *text = getenv(name);
    return text == nullptr ? 0 : strtol(text, nullptr, 10);
}

/// Before main(), and before the first thread.
__attribute__((constructor)) void readPlan()
{
    const char *program = getenv("FAIL_PROGRAM");
    const char *under = getenv("FAIL_UNDER");
    char self[kLongestPath] = {};
    if (program == nullptr || under == nullptr || readlink("/proc/self/exe", self, sizeof self - 1) < 0 ||
        strcmp(program, self) != 0) {
        return;
    }
    strncpy(thePlan.under, under, sizeof thePlan.under - 1);
    thePlan.underLength = strlen(thePlan.under);
    thePlan.nth = number("FAIL_NTH");
    thePlan.error = static_cast<int>(number("FAIL_ERRNO"));
    thePlan.shortWrite = number("FAIL_SHORT") != 0;
    thePlan.allocationNth = number("FAIL_ALLOCATION_NTH");
    thePlan.allocationAbove = static_cast<std::size_t>(number("FAIL_ALLOCATION_ABOVE"));
    const char *report = getenv("FAIL_REPORT");
    if (report != nullptr) {
        // Far from the numbers that the program would get, which some of its tests count.
        const int low =
            static_cast<int>(syscall(SYS_openat, AT_FDCWD, report, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
        thePlan.report = static_cast<int>(syscall(SYS_fcntl, low, F_DUPFD_CLOEXEC, 900));
        syscall(SYS_close, low);
    }
    thePlan.process = getpid();
}

bool isActive()
{
    return thePlan.process != 0 && thePlan.process == syscall(SYS_getpid);
}

bool isBelow(const char *path)
{
    return path != nullptr && strncmp(path, thePlan.under, thePlan.underLength) == 0 &&
           (path[thePlan.underLength] == '/' || path[thePlan.underLength] == '\0');
}

__attribute__((noinline)) void tell(long index, const char *call, const char *path)
{
    if (thePlan.report >= 0) {
        char line[kLongestPath + 64];
        const int length = snprintf(line, sizeof line, "%ld %s %s\n", index, call, path);
        syscall(SYS_write, thePlan.report, line, static_cast<std::size_t>(length));
    }
}

/// Whether this call shall fail; errno is set then.
bool fails(const char *call, const char *path)
{
    if (!isActive() || !isBelow(path)) {
        return false;
    }
    const long index = theCount.fetch_add(1) + 1;
    tell(index, call, path);
    if (index != thePlan.nth) {
        return false;
    }
    errno = thePlan.error;
    return true;
}

__attribute__((noinline)) bool failsOnOpen(const char *call, int descriptor)
{
    char link[64];
    char path[kLongestPath] = {};
    snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const int before = errno;
    const long length = syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    errno = before;
    return length > 0 && fails(call, path);
}

bool failsOn(const char *call, int descriptor)
{
    return isActive() && descriptor != thePlan.report && failsOnOpen(call, descriptor);
}

bool allocationFails(std::size_t size)
{
    if (!isActive() || thePlan.allocationAbove == 0 || size <= thePlan.allocationAbove) {
        return false;
    }
    const long index = theAllocations.fetch_add(1) + 1;
    if (thePlan.report >= 0) {
        char line[64];
        const int length = snprintf(line, sizeof line, "%ld malloc %zu\n", index, size);
        syscall(SYS_write, thePlan.report, line, static_cast<std::size_t>(length));
    }
    if (index != thePlan.allocationNth) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

template <typename Function> Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The C library's names and signatures.
// NOLINTBEGIN
#define NEXT(name) static const auto real = next<decltype(name)>(#name)

extern "C" {

#define OPEN(name)                                                                                                     \
    int name(const char *path, int flags, ...)                                                                         \
    {                                                                                                                  \
        va_list arguments;                                                                                             \
        va_start(arguments, flags);                                                                                    \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;                      \
        va_end(arguments);                                                                                             \
        NEXT(name);                                                                                                    \
        return fails("open", path) ? -1 : real(path, flags, mode);                                                     \
    }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                                                                   \
    int name(int folder, const char *path, int flags, ...)                                                             \
    {                                                                                                                  \
        va_list arguments;                                                                                             \
        va_start(arguments, flags);                                                                                    \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;                      \
        va_end(arguments);                                                                                             \
        NEXT(name);                                                                                                    \
        return fails("open", path) ? -1 : real(folder, path, flags, mode);                                             \
    }
OPENAT(openat)
OPENAT(openat64)

int mkostemps(char *path, int ending, int flags)
{
    NEXT(mkostemps);
    return fails("open", path) ? -1 : real(path, ending, flags);
}
int mkostemp(char *path, int flags)
{
    NEXT(mkostemp);
    return fails("open", path) ? -1 : real(path, flags);
}
DIR *opendir(const char *path)
{
    NEXT(opendir);
    return fails("open", path) ? nullptr : real(path);
}
ssize_t read(int descriptor, void *bytes, size_t count)
{
    NEXT(read);
    return failsOn("read", descriptor) ? -1 : real(descriptor, bytes, count);
}
ssize_t pread64(int descriptor, void *bytes, size_t count, off64_t offset)
{
    NEXT(pread64);
    return failsOn("read", descriptor) ? -1 : real(descriptor, bytes, count, offset);
}
ssize_t write(int descriptor, const void *bytes, size_t count)
{
    NEXT(write);
    if (!failsOn("write", descriptor)) {
        return real(descriptor, bytes, count);
    }
    return thePlan.shortWrite && count > 1 ? real(descriptor, bytes, count / 2) : -1;
}
ssize_t pwrite64(int descriptor, const void *bytes, size_t count, off64_t offset)
{
    NEXT(pwrite64);
    return failsOn("write", descriptor) ? -1 : real(descriptor, bytes, count, offset);
}
int fsync(int descriptor)
{
    NEXT(fsync);
    return failsOn("fsync", descriptor) ? -1 : real(descriptor);
}
int fdatasync(int descriptor)
{
    NEXT(fdatasync);
    return failsOn("fsync", descriptor) ? -1 : real(descriptor);
}
int fchmod(int descriptor, mode_t mode)
{
    NEXT(fchmod);
    return failsOn("fchmod", descriptor) ? -1 : real(descriptor, mode);
}
int chmod(const char *path, mode_t mode)
{
    NEXT(chmod);
    return fails("fchmod", path) ? -1 : real(path, mode);
}
int close(int descriptor)
{
    NEXT(close);
    if (!failsOn("close", descriptor)) {
        return real(descriptor);
    }
    real(descriptor); // The descriptor is gone all the same, as on Linux.
    errno = thePlan.error;
    return -1;
}
int rename(const char *from, const char *to)
{
    NEXT(rename);
    return fails("rename", to) ? -1 : real(from, to);
}
int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned int flags)
{
    NEXT(renameat2);
    return fails("rename", to) ? -1 : real(fromFolder, from, toFolder, to, flags);
}
int link(const char *from, const char *to)
{
    NEXT(link);
    return fails("link", to) ? -1 : real(from, to);
}
int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags)
{
    NEXT(linkat);
    return fails("link", to) ? -1 : real(fromFolder, from, toFolder, to, flags);
}
int unlink(const char *path)
{
    NEXT(unlink);
    return fails("unlink", path) ? -1 : real(path);
}
int remove(const char *path)
{
    NEXT(remove);
    return fails("unlink", path) ? -1 : real(path);
}
int mkdir(const char *path, mode_t mode)
{
    NEXT(mkdir);
    return fails("mkdir", path) ? -1 : real(path, mode);
}

void *malloc(size_t size)
{
    return allocationFails(size) ? nullptr : __libc_malloc(size);
}
void *calloc(size_t count, size_t size)
{
    return allocationFails(count * size) ? nullptr : __libc_calloc(count, size);
}
void *realloc(void *memory, size_t size)
{
    return allocationFails(size) ? nullptr : __libc_realloc(memory, size);
}
void *aligned_alloc(size_t alignment, size_t size)
{
    return allocationFails(size) ? nullptr : __libc_memalign(alignment, size);
}
int posix_memalign(void **memory, size_t alignment, size_t size)
{
    if (allocationFails(size)) {
        return ENOMEM;
    }
    *memory = __libc_memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}
}
// NOLINTEND
