#include "Outcome.h"
#include "PeakMemory.h"

#include "Providers/Base64.h"
#include "Providers/GeminiProvider.h"
#include "Providers/ServiceRequest.h"
#include "Storage/ImageStore.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

// A service's answer with a large picture in it: from its last byte to the picture's bytes, and to the file on disk.
namespace quorvane {

namespace {

constexpr qsizetype kMebibyte = qsizetype{1024} * 1024;

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator random(1);
    random.fillRange(reinterpret_cast<quint32 *>(bytes.data()), size / 4);
    return bytes;
}

QByteArray answerWith(const QByteArray &base64)
{
    return R"({"candidates":[{"content":{"parts":[{"text":"here"},{"inlineData":{"mimeType":"image/png","data":")" +
           base64 + R"("}}]}}],"usageMetadata":{"totalTokenCount":1290}})";
}

QByteArray decodedNaively(const QByteArray &answer)
{
    const QString text = QJsonDocument::fromJson(answer)
                             .object()["candidates"_L1][0]["content"_L1]["parts"_L1][1]["inlineData"_L1]["data"_L1]
                             .toString();
    return QByteArray::fromBase64(text.toLatin1());
}

double secondsOf(const auto &work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double peakOf(const auto &work)
{
    const PeakMemory peak;
    work();
    return static_cast<double>(peak.riseBytes());
}

/// The three ways in turns, so that all see the same machine.
void answerToPicture(benchmark::State &state)
{
    const QByteArray picture = randomBytes(30 * kMebibyte * 3 / 4);
    const QByteArray answer = answerWith(picture.toBase64());
    expect(state,
           imageFromAnswer(answer, GeminiProvider::service().answer).bytes == picture &&
               decodedNaively(answer) == picture,
           "the picture is not what was sent");
    double ours = 0;
    double naive = 0;
    double copy = 0;
    for (auto round : state) {
        const double seconds = secondsOf(
            [&] { benchmark::DoNotOptimize(imageFromAnswer(answer, GeminiProvider::service().answer).bytes.size()); });
        naive += secondsOf([&] { benchmark::DoNotOptimize(decodedNaively(answer).size()); });
        copy += secondsOf([&] {
            const auto target = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(answer.size()));
            std::memcpy(target.get(), answer.constData(), static_cast<std::size_t>(answer.size()));
            benchmark::DoNotOptimize(target[1]);
        });
        ours += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["naive/ours"] = naive / ours;
    state.counters["ours/copy"] = ours / copy;
    const auto size = static_cast<double>(answer.size());
    // The answer itself counts too: it is in memory all the while.
    state.counters["peak/answer"] =
        1 + peakOf([&] {
                benchmark::DoNotOptimize(imageFromAnswer(answer, GeminiProvider::service().answer).bytes.size());
            }) / size;
    state.counters["naive peak/answer"] =
        1 + peakOf([&] { benchmark::DoNotOptimize(decodedNaively(answer).size()); }) / size;
}

/// A PNG of 20 MB to the file on disk, beside reading its base64 text from disk and decoding it with Qt.
void answerToFile(benchmark::State &state)
{
    const QByteArray base64 = randomBytes(20 * 1000 * 1000).toBase64();
    const QByteArray answer = answerWith(base64);
    const QString source = ImageStore::directory() + u"/source.txt"_s;
    QFile file(source);
    const bool isSource = file.open(QIODevice::WriteOnly) && file.write(base64) == base64.size();
    file.close();
    expect(state, isSource, "the text to compare with was not written");

    double ours = 0;
    double reading = 0;
    bool areSaved = true;
    const auto toFile = [&] {
        const EncodedImage image = imageFromAnswer(answer, GeminiProvider::service().answer);
        areSaved = bool(ImageStore::saveImage(u"a.png"_s, image.bytes)) && areSaved;
    };
    for (auto round : state) {
        const double seconds = secondsOf(toFile);
        reading += secondsOf([&] {
            QFile text(source);
            (void)text.open(QIODevice::ReadOnly);
            benchmark::DoNotOptimize(QByteArray::fromBase64(text.readAll()).size());
        });
        ours += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["ours/reading and decoding"] = ours / reading;
    state.counters["peak/answer"] = 1 + peakOf(toFile) / static_cast<double>(answer.size());
    expect(state, areSaved, "the picture was not saved");
}

void base64(benchmark::State &state)
{
    const QByteArray bytes = randomBytes(30 * kMebibyte * 3 / 4);
    const QByteArray text = bytes.toBase64();
    expect(state, decodeBase64(text) == bytes, "the text is not decoded");
    double ours = 0;
    double qt = 0;
    for (auto round : state) {
        const double seconds = secondsOf([&] { benchmark::DoNotOptimize(decodeBase64(text)->size()); });
        qt += secondsOf([&] { benchmark::DoNotOptimize(QByteArray::fromBase64(text).size()); });
        ours += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["Qt/ours"] = qt / ours;
}

} // namespace

} // namespace quorvane

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    const auto add = [](const char *name, void (*run)(benchmark::State &)) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond)->UseManualTime();
    };
    add("30 MiB answer to picture", quorvane::answerToPicture);
    add("20 MB PNG: answer to file", quorvane::answerToFile);
    add("30 MiB of base64", quorvane::base64);
    return quorvane::runBenchmarks(argc, argv);
}
