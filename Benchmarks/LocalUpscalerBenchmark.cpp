#include "Outcome.h"

#include "Platform/Threads/BackgroundThread.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/TilePixels.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>
#include <sys/resource.h>
#include <vector>

using namespace Qt::StringLiterals;

// What an upscale costs: the network alone, everything around it, and memory. The networks have the shape of those that
// people use and pseudo-random weights; Tools/test-models/make.py --benchmark writes them.

namespace quorvane {

namespace {

QString modelFile(const char *name)
{
    return QStringLiteral(QUORVANE_BENCHMARK_MODELS "/%1.onnx").arg(QLatin1String(name));
}

/// Takes almost no time and memory itself.
const QString kCopyingModel = QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx");

/// Soft shapes with a little noise, which compress about as a generated picture does.
QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGBX8888);
    unsigned noise = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525U + 1013904223U;
            const double wave = std::sin(x / 61.0) + std::sin(y / 43.0) + std::sin((x + y) / 157.0);
            const int level = 120 + int(wave * 35) + int(noise >> 29);
            image.setPixel(x, y, qRgb(level, (level + x / 16) % 256, 255 - level));
        }
    }
    return image;
}

/// Seconds of processor time that this process has used, all threads together.
double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](timeval time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double statusMegabytes(const char *name)
{
    QFile status(u"/proc/self/status"_s);
    static_cast<void>(status.open(QIODevice::ReadOnly));
    for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
        if (line.startsWith(name)) {
            return line.mid(line.indexOf(':') + 1).trimmed().split(' ').front().toDouble() / 1024;
        }
    }
    return 0;
}

void restartPeak()
{
    QFile reset(u"/proc/self/clear_refs"_s);
    if (reset.open(QIODevice::WriteOnly)) {
        reset.write("5");
    }
}

std::vector<float> sampleTile()
{
    std::vector<float> planes(std::size_t(3) * 512 * 512);
    planesFromTile(picture(512, 512), planes);
    return planes;
}

void oneTile(benchmark::State &state, const char *name)
{
    SuperResolutionModel model(modelFile(name), physicalCores());
    const std::vector<float> tile = sampleTile();
    static_cast<void>(model.run(tile, {}));
    restartPeak();
    for (auto unused : state) {
        static_cast<void>(unused);
        benchmark::DoNotOptimize(model.run(tile, {}).data());
    }
    state.counters["peakMB"] = std::round(statusMegabytes("VmHWM"));
}

/// Upscales the file at from to the file at to; the number of bytes written.
qint64 upscaleFile(const QString &from, const QString &to, const QString &modelPath)
{
    QFile source(from);
    QFile target(to);
    if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly)) {
        return 0;
    }
    SuperResolutionModel model(modelPath, physicalCores());
    return target.write(tileUpscaleWithModel(decodeImage(source.readAll()), model, {}));
}

/// 1536 × 1024, six tiles, from a file to a file. outsideNetwork is the share of the processor's time, at most: the
/// same way with a network that only copies pixels, divided by the way with the real one.
void fileToFile(benchmark::State &state, const char *name)
{
    const QTemporaryDir folder;
    const QString from = folder.filePath(u"picture.png"_s);
    const QString to = folder.filePath(u"result.png"_s);
    expect(state, picture(1536, 1024).save(from), "there is no picture");
    const double start = processorSeconds();
    expect(state, upscaleFile(from, to, kCopyingModel) > 0, "nothing was upscaled by copying");
    const double outside = processorSeconds() - start;

    double all = 0;
    qint64 bytes = 0;
    for (auto unused : state) {
        static_cast<void>(unused);
        const double before = processorSeconds();
        bytes = upscaleFile(from, to, modelFile(name));
        all += processorSeconds() - before;
    }
    state.counters["outsideNetwork"] = outside * double(state.iterations()) / all;
    state.counters["resultMB"] = double(bytes) / 1e6;
    expect(state, bytes > 0, "nothing was upscaled");
}

/// Peak memory above what is there before, by picture size, with a network that needs almost none itself.
void peakMemory(benchmark::State &state)
{
    const QImage image = picture(int(state.range(0)), int(state.range(1)));
    SuperResolutionModel model(kCopyingModel, physicalCores());
    qsizetype size = 0;
    for (auto unused : state) {
        static_cast<void>(unused);
        restartPeak();
        const double before = statusMegabytes("VmRSS");
        const QByteArray png = tileUpscaleWithModel(image, model, {});
        size = png.size();
        state.counters["peakAboveMB"] = statusMegabytes("VmHWM") - before;
        state.counters["resultMB"] = double(png.size()) / 1e6;
    }
    state.counters["inputMB"] = double(image.sizeInBytes()) / 1e6;
    expect(state, size > 0, "nothing was upscaled");
}

BENCHMARK_CAPTURE(oneTile, compact, "compact")->Unit(benchmark::kSecond)->UseRealTime()->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(oneTile, full, "full")
    ->Unit(benchmark::kSecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(1);
BENCHMARK_CAPTURE(fileToFile, compact, "compact")
    ->Unit(benchmark::kSecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(1);
BENCHMARK(peakMemory)
    ->Args({512, 512})
    ->Args({1536, 1024})
    ->Args({1920, 1080})
    ->Args({3840, 2160})
    ->Unit(benchmark::kSecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime()
    ->Iterations(1);

} // namespace

} // namespace quorvane

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return quorvane::runBenchmarks(argc, argv);
}
