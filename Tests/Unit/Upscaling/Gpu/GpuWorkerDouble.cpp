#include "Upscaling/Gpu/GpuWorker.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <unistd.h>
#include <vector>

// Stands in for the worker on a graphics card: enlarges by repeating pixels, as the network "nearest" does, until it
// misbehaves from a certain tile on.
//
//   GpuWorkerDouble NETWORK BEHAVIOUR TILE

namespace {

using namespace quorvane;

bool read(void *data, std::size_t left)
{
    auto *bytes = static_cast<char *>(data);
    while (left > 0) {
        const ssize_t count = ::read(STDIN_FILENO, bytes, left);
        if (count <= 0) {
            return false;
        }
        bytes += count;
        left -= static_cast<std::size_t>(count);
    }
    return true;
}

void write(const void *data, std::size_t left)
{
    const auto *bytes = static_cast<const char *>(data);
    while (left > 0) {
        const ssize_t count = ::write(STDOUT_FILENO, bytes, left);
        if (count <= 0) {
            _exit(EXIT_FAILURE);
        }
        bytes += count;
        left -= static_cast<std::size_t>(count);
    }
}

void enlarge(const std::vector<float> &tile, std::size_t width, std::vector<float> &result)
{
    for (std::size_t row = 0; row * 4 * width < result.size(); ++row) {
        for (std::size_t x = 0; x < 4 * width; ++x) {
            result[row * 4 * width + x] = tile[row / 4 * width + x / 4];
        }
    }
}

void misbehave(const std::string &behaviour, std::vector<float> &result)
{
    const std::size_t half = result.size() * sizeof(float) / 2;
    if (behaviour == "crash") {
        write(result.data(), half);
        raise(SIGKILL);
    } else if (behaviour == "hang") {
        write(result.data(), half);
        pause();
    } else if (behaviour == "too-little") {
        write(result.data(), half);
        _exit(EXIT_SUCCESS);
    } else if (behaviour == "nothing") {
        _exit(EXIT_SUCCESS);
    } else if (behaviour == "too-much") {
        write("more", 4);
    } else if (behaviour == "no-numbers") {
        result[result.size() / 3] = std::numeric_limits<float>::quiet_NaN();
    } else if (behaviour == "black") {
        std::fill(result.begin(), result.end(), 0.0F);
    } else if (behaviour == "slightly-off") {
        result[2048] += result[2048] < 0.5F ? 0.012F : -0.012F;
    } else if (behaviour == "brighter") {
        for (float &number : result) {
            number += 1.0F / 255;
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        return EXIT_FAILURE;
    }
    const std::string behaviour = argv[2];
    const int from = std::atoi(argv[3]);
    GpuWorker::Header header;
    for (int number = 1; read(&header, sizeof header); ++number) {
        std::vector<float> tile(header.tileSize());
        std::vector<float> result(header.resultSize());
        if (!read(tile.data(), tile.size() * sizeof(float))) {
            return EXIT_FAILURE;
        }
        enlarge(tile, std::size_t(header.width), result);
        if (number >= from) {
            misbehave(behaviour, result);
        }
        write(result.data(), result.size() * sizeof(float));
    }
    return EXIT_SUCCESS;
}
