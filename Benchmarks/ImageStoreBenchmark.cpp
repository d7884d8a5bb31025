#include "Outcome.h"

#include "Manager/WallpaperManager.h"
#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Secrets/SecretStore.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

#include <QCoreApplication>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <map>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

// A library of 10,000 images with 5,000 links and 10,000 prompts, in a home of the benchmark's own.
namespace quorvane {

namespace {

constexpr int kImages = 10'000;

void makeLibrary()
{
    const QString folder = ImageStore::directory() + '/'_L1;
    TextMap prompts;
    TextMap links;
    for (int number = 0; number < kImages; ++number) {
        const QString name = u"wallpaper_2024-05-01_%1.png"_s.arg(number, 6, 10, '0'_L1);
        if (!QFile(folder + name).open(QIODevice::WriteOnly)) {
            qFatal("The library was not made");
        }
        prompts.emplace(name, u"a quiet mountain lake at dawn, number %1"_s.arg(number / 4));
        if (number % 2 == 1) {
            links.emplace(u"wallpaper_2024-05-01_%1.png"_s.arg(number - 1, 6, 10, '0'_L1), name);
        }
    }
    for (const auto &[path, map] :
         std::map<QString, TextMap>{{ImageStore::promptsPath(), prompts}, {ImageStore::variantsPath(), links}}) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytesFromTextMap(map).value_or(QByteArray())) <= 0) {
            qFatal("The library was not made");
        }
    }
}

/// What no listing can do without: every entry's name and one look at its dates.
int listWithStatx(const QByteArray &folder)
{
    int count = 0;
    DIR *listing = ::opendir(folder.constData());
    while (const dirent *entry = ::readdir(listing)) {
        struct statx status = {};
        count += ::statx(::dirfd(listing), static_cast<const char *>(entry->d_name), AT_SYMLINK_NOFOLLOW, STATX_BTIME,
                         &status) == 0
                     ? 1
                     : 0;
    }
    ::closedir(listing);
    return count;
}

void listing(benchmark::State &state)
{
    const QByteArray folder = QFile::encodeName(ImageStore::directory());
    int count = 0;
    for (auto round : state) {
        count = listWithStatx(folder);
    }
    expect(state, count >= kImages, "the listing is not whole");
}

/// Runs subject and the plain listing in turns, so that both see the same machine, and tells the ratio of their times.
/// subject is to come to that many.
template <typename Subject> void asRatioToListing(benchmark::State &state, qsizetype many, Subject subject)
{
    using Clock = std::chrono::steady_clock;
    const QByteArray folder = QFile::encodeName(ImageStore::directory());
    Clock::duration listingTime{};
    Clock::duration subjectTime{};
    qsizetype came = 0;
    for (auto round : state) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(listWithStatx(folder));
        const auto middle = Clock::now();
        came = static_cast<qsizetype>(subject());
        const auto end = Clock::now();
        listingTime += middle - start;
        subjectTime += end - middle;
        state.SetIterationTime(std::chrono::duration<double>(end - middle).count());
    }
    state.counters["ratio to listing"] =
        std::chrono::duration<double>(subjectTime).count() / std::chrono::duration<double>(listingTime).count();
    expect(state, came == many, "not all came");
}

void allImages(benchmark::State &state)
{
    asRatioToListing(state, kImages, [] { return ImageStore::allImages().size(); });
}

void readPrompts(benchmark::State &state)
{
    asRatioToListing(state, kImages, [] { return readTextMap(ImageStore::promptsPath()).size(); });
}

/// A manager over the library, with nothing else to do.
struct Program
{
    UserDefaults defaults;
    HttpClient http;
    std::unique_ptr<DesktopPicture> desktop = makeDesktopPicture();
    std::unique_ptr<SecretStore> legacyKeys = makeSecretStore();
    WallpaperManager manager{
        ManagerServices{&defaults, &http, desktop.get(), legacyKeys.get(), {}, nullptr, nullptr, nullptr}};
};

void reloadHistory(benchmark::State &state)
{
    Program program;
    asRatioToListing(state, kImages, [&] {
        program.manager.reloadHistory();
        return program.manager.history().size();
    });
}

void albums(benchmark::State &state)
{
    Program program;
    asRatioToListing(state, kImages / 4, [&] { return program.manager.albums().size(); });
}

} // namespace

} // namespace quorvane

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    quorvane::makeLibrary();
    benchmark::RegisterBenchmark("listing with statx alone", quorvane::listing)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("allImages", quorvane::allImages)->Unit(benchmark::kMillisecond)->UseManualTime();
    benchmark::RegisterBenchmark("reading 10,000 prompts", quorvane::readPrompts)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
    benchmark::RegisterBenchmark("history reload", quorvane::reloadHistory)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
    benchmark::RegisterBenchmark("albums", quorvane::albums)->Unit(benchmark::kMillisecond)->UseManualTime();
    return quorvane::runBenchmarks(argc, argv);
}
