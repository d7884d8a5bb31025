#include "Platform/Threads/BackgroundThread.h"
#include "Upscaling/Gpu/GpuWorker.h"
#include "Upscaling/Gpu/VulkanDevices.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <span>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

// The process that GpuWorker starts: it computes on the graphics card and does nothing else.
//
// The idea: a driver is the least trustworthy code on a machine. It takes seconds to start, may hang, may give black,
// may leak, and may end the process that called it; and none of that may cost the user a picture. So the driver gets a
// process of its own, with the smallest imaginable task: tiles in, tiles four times as large out. The program
// beside it goes on with the processor all the time, gives the card a tile that the processor has done as well,
// compares (see Gpu.h), and only then lets the card have the rest. A card that is wrong or slow is found out on that
// tile, one that hangs is killed with its process, and what the driver keeps goes with it at the end of the upscale.
//
// Not taken: the card in the program's own process, as the inference engine offers it. It is less code, and a crash of
// the driver is then a crash of the application in the middle of a day; the driver's threads and memory stay for that
// day, too. And not taken: shared memory instead of pipes. It saves copying 3 MB in and 50 MB out a tile, and brings
// names, sizes and leftovers that somebody has to clear away after a crash.
//
// Reads tiles from standard input, each a GpuWorker::Header and [3, height, width] float32, and writes
// [3, 4 height, 4 width] float32 for each to standard output, until the input ends. Says why it gives up on standard
// error, for whoever starts it by hand.

namespace {

using namespace quorvane;

constexpr int kUsage = 2;

/// Dies with the program that started it, leaves no core dump, and keeps the drivers' messages out of the results.
/// Gives where the results go.
int standApart()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_DUMPABLE, 0);
    lowerThreadPriority();
    const int results = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return results;
}

bool hasVulkanCard()
{
    const VulkanDevices devices = findVulkanDevices();
    if (devices == VulkanDevices::None) {
        std::fputs("Vulkan finds no graphics card\n", stderr);
    } else if (devices == VulkanDevices::Software) {
        std::fputs("Vulkan computes on the processor\n", stderr);
    }
    return devices == VulkanDevices::Hardware;
}

/// The network on the first of the providers that works; null when none does.
std::unique_ptr<SuperResolutionModel> load(const QString &path, std::span<char *> providers)
{
    for (const char *name : providers) {
        const QString provider = QString::fromUtf8(name);
        if (provider == u"WebGpuExecutionProvider"_s && !hasVulkanCard()) {
            continue;
        }
        try {
            return std::make_unique<SuperResolutionModel>(path, 1, provider);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "%s: %s\n", name, error.what());
        }
    }
    return nullptr;
}

/// False at the end of the input.
bool readAll(std::span<std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

bool writeAll(int file, std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// False at the end of the input, and for a size that no tile has.
bool serveOne(SuperResolutionModel &model, int results)
{
    GpuWorker::Header header;
    if (!readAll(std::as_writable_bytes(std::span(&header, 1))) || header.tileSize() == 0) {
        return false;
    }
    std::vector<float> tile(header.tileSize());
    return readAll(std::as_writable_bytes(std::span(tile))) &&
           writeAll(results, std::as_bytes(model.run(tile, {}, QSize(header.width, header.height))));
}

/// Ends the process without a destructor, because graphics drivers crash when they are unloaded.
[[noreturn]] void serve(const QString &path, std::span<char *> providers, int results)
{
    const std::unique_ptr<SuperResolutionModel> model = load(path, providers);
    if (!model) {
        _exit(EXIT_FAILURE);
    }
    try {
        while (serveOne(*model, results)) {
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        _exit(EXIT_FAILURE);
    }
    _exit(EXIT_SUCCESS);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3) {
        std::fputs("usage: quorvane-gpu-worker NETWORK PROVIDER...\n", stderr);
        return kUsage;
    }
    const int results = standApart();
    const std::span<char *> arguments(argv, static_cast<std::size_t>(argc));
    serve(QFile::decodeName(arguments[1]), arguments.subspan(2), results);
}
