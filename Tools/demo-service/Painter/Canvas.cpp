#include "demo-service/Painter/Canvas.h"

#include "demo-service/Painter/Noise.h"

#include <atomic>
#include <thread>

namespace quorvane::painter {

Canvas::Canvas(QSize size)
    : m_size(size)
    , m_pixel(1.0F / static_cast<float>(size.height()))
    , m_pixels(static_cast<size_t>(size.width()) * static_cast<size_t>(size.height()))
{
}

Color Canvas::sample(float column, float row) const
{
    column = std::clamp(column, 0.0F, static_cast<float>(width() - 1));
    row = std::clamp(row, 0.0F, static_cast<float>(height() - 1));
    const int left = std::min(static_cast<int>(column), std::max(width() - 2, 0));
    const int top = std::min(static_cast<int>(row), std::max(height() - 2, 0));
    const int right = std::min(left + 1, width() - 1);
    const int bottom = std::min(top + 1, height() - 1);
    const float across = column - static_cast<float>(left);
    return mix(mix(at(left, top), at(right, top), across), mix(at(left, bottom), at(right, bottom), across),
               row - static_cast<float>(top));
}

void inParallel(int count, const std::function<void(int)> &work)
{
    std::atomic<int> next = 0;
    const auto run = [&] {
        for (int i = next++; i < count; i = next++) {
            work(i);
        }
    };
    std::vector<std::thread> others(std::clamp(std::thread::hardware_concurrency(), 1U, 8U) - 1);
    for (std::thread &thread : others) {
        thread = std::thread(run);
    }
    run();
    for (std::thread &thread : others) {
        thread.join();
    }
}

} // namespace quorvane::painter
