// What the windows cost with 10,000 pictures, drawn by the processor, each figure beside an alternative that is
// measured in the same run. Every part runs in a process of its own, so that none profits from what another left in
// memory:
//
//   WindowBenchmark            all parts
//   WindowBenchmark PART...    start, scroll, thumbnails, reopening, preview

#include "PeakMemory.h"

#include "Manager/WallpaperManager.h"
#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Secrets/SecretStore.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"
#include "Views/Pictures/PictureDecoding.h"
#include "Views/Pictures/PictureProvider.h"
#include "Views/Pictures/PictureUrl.h"
#include "Views/Views.h"
#include "demo-service/Painter/Painter.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QImageWriter>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include <time.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kImages = 10'000;
constexpr int kFew = 10;
constexpr int kLarge = 12;
constexpr double kFrame = 1000.0 / 60;

using Times = std::vector<double>; ///< Milliseconds.

double median(Times times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

/// The processor's time that this thread has had, in milliseconds: what a frame costs, whatever else the machine does.
double ownTime()
{
    struct timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// No keys of old times, whose search would be measured, too.
class NoSecrets final : public SecretStore
{
  public:
    [[nodiscard]] std::optional<QByteArray> read(const QString & /*service*/, const QString & /*account*/) override
    {
        return std::nullopt;
    }
    void remove(const QString & /*service*/, const QString & /*account*/) override {}
};

/// A painted picture with the grain of a photograph, so that no encoder has it too easy.
QImage picture(int number, QSize size)
{
    QImage image = paintPicture(u"a lake %1"_s.arg(number), {960, 540})
                       .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                       .convertToFormat(QImage::Format_RGB32);
    auto random = QRandomGenerator(quint32(number));
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            line[x] ^= random.generate() & 0x010101U;
        }
    }
    return image;
}

/// Ends this part, with a status that tells: what it is to measure did not happen.
[[noreturn]] void giveUp(const char *why)
{
    std::fprintf(stderr, "%s\n", why);
    std::exit(1);
}

void expect(bool happened, const char *otherwise)
{
    if (!happened) {
        giveUp(otherwise);
    }
}

/// A home with that many pictures of a few contents, four to a prompt.
void makeHome(const QString &home, int count)
{
    qputenv("HOME", QFile::encodeName(home));
    const QString folder = ImageStore::directory() + '/'_L1;
    constexpr int kContents = 8;
    for (int number = 0; number < kContents; ++number) {
        expect(picture(number, {1280, 720}).save(home + u"/%1.jpg"_s.arg(number)), "no picture was made");
    }
    TextMap prompts;
    for (int number = 0; number < count; ++number) {
        const QString name = u"wallpaper_%1.jpg"_s.arg(number, 6, 10, '0'_L1);
        const QString source = home + u"/%1.jpg"_s.arg(number % kContents);
        expect(::link(QFile::encodeName(source).constData(), QFile::encodeName(folder + name).constData()) == 0,
               "the library was not made");
        prompts.emplace(name, u"a quiet mountain lake at dawn"_s);
    }
    QFile file(ImageStore::promptsPath());
    expect(file.open(QIODevice::WriteOnly) && file.write(bytesFromTextMap(prompts).value_or(QByteArray())) > 0,
           "the prompts were not written");
}

/// The program as far as its main window needs it.
struct Program
{
    UserDefaults defaults;
    HttpClient http;
    std::unique_ptr<DesktopPicture> desktop = makeDesktopPicture();
    NoSecrets legacyKeys;
    double began = ownTime();
    WallpaperManager manager{
        ManagerServices{&defaults, &http, desktop.get(), &legacyKeys, {}, nullptr, nullptr, nullptr}};
    double managerMade = ownTime() - began;
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;

    void open()
    {
        installViews(&engine);
        engine.setInitialProperties({{u"manager"_s, QVariant::fromValue(&manager)}});
        engine.load(QUrl(u"qrc:/qt/qml/Quorvane/Views/MainWindow.qml"_s));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
        expect(window != nullptr, "there is no window");
        window->show();
    }
    [[nodiscard]] QQuickItem *item(const char *name) const
    {
        QQuickItem *found = find(window->contentItem(), QLatin1String(name));
        expect(found != nullptr, name);
        return found;
    }
    [[nodiscard]] static QQuickItem *find(QQuickItem *item, const QString &name)
    {
        if (item->objectName() == name) {
            return item;
        }
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *found = find(child, name)) {
                return found;
            }
        }
        return nullptr;
    }
};

/// Draws a frame now.
void draw(QQuickWindow *window)
{
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(window, &update);
}

template <typename Condition> void waitUntil(Condition condition)
{
    QTimer look; // Not everything that is waited for comes with an event.
    look.start(5);
    const QDeadlineTimer limit(std::chrono::minutes(2));
    while (!condition()) {
        if (limit.hasExpired()) {
            giveUp("what was waited for did not come");
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void start(const QString &folder)
{
    Times made[2];
    Times shown[2];
    Times filled[2];
    const QString homes[2] = {folder + u"/few"_s, folder + u"/many"_s};
    makeHome(homes[0], kFew);
    makeHome(homes[1], kImages);
    constexpr int kRounds = 6; // The first one warms up.
    for (int round = 0; round < kRounds; ++round) {
        for (int which = 0; which < 2; ++which) {
            qputenv("HOME", QFile::encodeName(homes[which]));
            Program program;
            program.open();
            draw(program.window);
            const double firstFrame = ownTime() - program.began;
            waitUntil([&] { return program.item("albumGrid")->property("count").toInt() > 0; });
            draw(program.window);
            if (round > 0) {
                made[which].push_back(program.managerMade);
                shown[which].push_back(firstFrame);
                filled[which].push_back(ownTime() - program.began);
            }
        }
    }
    const auto tell = [](const char *what, const Times *times) {
        std::printf("%-44s %7.1f ms, with %d pictures %7.1f ms, ratio %.2f\n", what, median(times[1]), kFew,
                    median(times[0]), median(times[1]) / median(times[0]));
    };
    std::printf("start with %d pictures, time of the main thread\n", kImages);
    tell("  the manager is made", made);
    tell("  the first frame of the window", shown);
    tell("  the first frame with albums", filled);
}

/// The times of the frames while grid goes from its beginning to its end, each with all that came up before it. Between
/// two frames the event loop itself runs, because only that deletes what has been left to be deleted later.
Times scrolled(QQuickWindow *window, QQuickItem *grid, double step)
{
    Times times;
    const double end = grid->property("contentHeight").toDouble() - grid->height();
    double place = 0;
    double before = ownTime();
    QEventLoop loop;
    QTimer next;
    QObject::connect(&next, &QTimer::timeout, &loop, [&] {
        grid->setProperty("contentY", place);
        draw(window);
        const double now = ownTime();
        times.push_back(now - before);
        before = now;
        place += step;
        if (place >= end) {
            loop.quit();
        }
    });
    next.start(0);
    loop.exec();
    return times;
}

void tellFrames(const char *what, Times times)
{
    expect(!times.empty(), what);
    const auto late = std::count_if(times.begin(), times.end(), [](double time) { return time > kFrame; });
    std::sort(times.begin(), times.end());
    std::printf("%-44s %zu frames, median %.2f ms, 99th %.2f ms, longest %.1f ms, late %.2f %%\n", what, times.size(),
                times[times.size() / 2], times[times.size() * 99 / 100], times.back(),
                100.0 * double(late) / double(times.size()));
}

constexpr auto kPlainGrid = R"(
import QtQuick
Window {
    width: 960; height: 640
    GridView {
        objectName: "plain"
        x: 304; width: 652; height: 576; y: 64
        cellWidth: 326; cellHeight: 196; reuseItems: true; cacheBuffer: 400
        model: 10000
        delegate: Item {
            required property int index
            width: 306; height: 176
            Rectangle { width: parent.width; height: 130; color: "#446688" }
            Text { y: 138; text: "picture " + parent.index }
        }
    }
})";

void scroll(const QString &folder)
{
    makeHome(folder, kImages);
    Program program;
    program.open();
    waitUntil([&] { return program.item("albumGrid")->property("count").toInt() > 0; });
    constexpr double kStep = 360; // Three turns of the wheel.
    {
        QQmlComponent component(&program.engine);
        component.setData(kPlainGrid, {});
        const std::unique_ptr<QObject> object(component.create());
        auto *window = qobject_cast<QQuickWindow *>(object.get());
        window->show();
        draw(window);
        std::printf("scrolling %d pictures, %.0f points a frame, time of the main thread\n", kImages, kStep);
        tellFrames("  a grid of plain rectangles",
                   scrolled(window, Program::find(window->contentItem(), u"plain"_s), kStep));
    }
    PeakMemory memory;
    expect(QMetaObject::invokeMethod(program.item("album a quiet mountain lake at dawn"), "clicked"),
           "the album does not open");
    QQuickItem *grid = program.item("imageGrid");
    waitUntil([&] { return grid->property("count").toInt() == kImages; });
    draw(program.window);
    tellFrames("  the pictures, thumbnails not made yet", scrolled(program.window, grid, kStep));
    tellFrames("  the pictures again", scrolled(program.window, grid, kStep));
    std::printf("memory with %d pictures scrolled: %.0f MB at most, of which %.0f MB for the pictures\n", kImages,
                double(PeakMemory::highWaterBytes()) / 1e6, double(memory.riseBytes()) / 1e6);
}

QStringList largePictures(const QString &folder, const QString &format)
{
    QStringList paths;
    const QImage image = picture(1, {3840, 2160});
    for (int number = 0; number < kLarge; ++number) {
        paths.append(u"%1/large-%2.%3"_s.arg(folder).arg(number).arg(format));
        if (number == 0) {
            QImageWriter writer(paths.first());
            writer.setQuality(format == "jpg"_L1 ? 92 : 70);
            expect(writer.write(image), "no picture was made");
        } else {
            expect(QFile::copy(paths.first(), paths.last()), "no picture was made");
        }
    }
    return paths;
}

/// As the tiles ask for them: all at once, in milliseconds.
double thumbnailsBy(PictureProvider &provider, const QStringList &paths)
{
    QElapsedTimer timer;
    timer.start();
    int open = int(paths.size());
    std::vector<std::unique_ptr<QQuickImageResponse>> responses;
    for (const QString &path : paths) {
        const QString id = QUrl(thumbnailUrl(path)).path().mid(1);
        responses.emplace_back(provider.requestImageResponse(id, {}));
        QObject::connect(responses.back().get(), &QQuickImageResponse::finished, responses.back().get(),
                         [&open] { --open; });
    }
    waitUntil([&open] { return open == 0; });
    const double taken = since(timer);
    for (const auto &response : responses) {
        expect(response->errorString().isEmpty(), "a thumbnail was not made");
    }
    return taken;
}

void thumbnails(const QString &folder)
{
    for (const char *format : {"png", "jpg"}) {
        const QStringList paths = largePictures(folder, QLatin1String(format));
        Times ours;
        Times theirs;
        for (int round = 0; round < 3; ++round) {
            QDir(folder + u"/.cache"_s).removeRecursively();
            PictureProvider provider(PictureProvider::Kind::Thumbnail);
            ours.push_back(thumbnailsBy(provider, paths));
            QElapsedTimer timer;
            timer.start();
            const int status =
                QProcess::execute(u"vipsthumbnail"_s,
                                  QStringList{u"--size"_s, u"440x440"_s, u"-o"_s, folder + u"/small-%s.jpg"_s} + paths);
            expect(status == 0, "vipsthumbnail did not run (libvips-tools)");
            theirs.push_back(since(timer));
        }
        std::printf("thumbnails of 4K %s: %.1f a second, vipsthumbnail %.1f a second, ratio of times %.2f\n", format,
                    1000 * kLarge / median(ours), 1000 * kLarge / median(theirs), median(ours) / median(theirs));
    }
}

void reopening(const QString &folder)
{
    const QStringList paths = largePictures(folder, u"jpg"_s);
    {
        PictureProvider provider(PictureProvider::Kind::Thumbnail);
        (void)thumbnailsBy(provider, paths);
    }
    Times ours;
    Times bare;
    for (int round = 0; round < 9; ++round) {
        PictureProvider provider(PictureProvider::Kind::Thumbnail);
        ours.push_back(thumbnailsBy(provider, paths));
        QElapsedTimer timer;
        timer.start();
        for (const QString &path : paths) {
            expect(QImage(ThumbnailCache::fileFor(path).value_or(QString())).sizeInBytes() > 0,
                   "a thumbnail is not in the cache");
        }
        bare.push_back(since(timer));
    }
    std::printf("thumbnails from the disk cache: %.2f ms each, decoding alone %.2f ms, ratio %.2f\n",
                median(ours) / kLarge, median(bare) / kLarge, median(ours) / median(bare));
}

void preview(const QString &folder)
{
    qputenv("HOME", QFile::encodeName(folder));
    const QStringList paths = largePictures(ImageStore::directory(), u"jpg"_s);
    Program program;
    program.open();
    waitUntil([&] { return program.item("albumGrid")->property("count").toInt() > 0; });
    QObject *model = program.item("preview")->property("model").value<QObject *>();
    const QQuickItem *shown = program.item("previewPicture");
    const auto isSharp = [shown] { return shown->property("status").toInt() == 1; };
    const auto goOn = [&](bool rests) {
        Times times;
        model->setProperty("previewURL", program.manager.history().first());
        waitUntil(isSharp);
        for (int step = 1; step < kLarge; ++step) {
            if (rests) { // What a look at a picture takes.
                QElapsedTimer look;
                look.start();
                waitUntil([&look] { return look.elapsed() > 1000; });
            }
            QElapsedTimer timer;
            timer.start();
            expect(QMetaObject::invokeMethod(model, "goRight"), "the preview does not go on");
            draw(program.window);
            waitUntil(isSharp);
            draw(program.window);
            times.push_back(since(timer));
        }
        return median(times);
    };
    const double hurried = goOn(false);
    const double looked = goOn(true);
    Times bare;
    for (const QString &path : paths) {
        QElapsedTimer timer;
        timer.start();
        expect(decodedWithin(path, shown->property("sourceSize").toSize()).sizeInBytes() > 0,
               "the picture cannot be decoded");
        bare.push_back(since(timer));
    }
    std::printf("preview, from key to sharp 4K picture: %.1f ms after a look, %.1f ms in a hurry; decoding alone %.1f "
                "ms, ratios %.2f and %.2f\n",
                looked, hurried, median(bare), looked / median(bare), hurried / median(bare));
}

int runPart(const QString &name)
{
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"}) {
        qputenv(variable, QFile::encodeName(home.path()));
    }
    qputenv("XDG_CACHE_HOME", QFile::encodeName(home.path() + u"/.cache"_s));
    struct Part
    {
        const char *name;
        void (*run)(const QString &home);
    };
    for (const Part &part : {Part{"start", &start}, Part{"scroll", &scroll}, Part{"thumbnails", &thumbnails},
                             Part{"reopening", &reopening}, Part{"preview", &preview}}) {
        if (name == QLatin1String(part.name)) {
            part.run(home.path());
            return 0;
        }
    }
    std::fprintf(stderr, "there is no part \"%s\"\n", qPrintable(name));
    return 2;
}

} // namespace

} // namespace quorvane

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    const QGuiApplication application(argc, argv);
    if (argc == 2) {
        return quorvane::runPart(QString::fromLocal8Bit(argv[1]));
    }
    QStringList parts = QCoreApplication::arguments().mid(1);
    if (parts.isEmpty()) {
        parts = QString(u"start scroll thumbnails reopening preview"_s).split(' '_L1);
    }
    bool haveAllRun = true;
    for (const QString &part : std::as_const(parts)) {
        // Below 0 where it crashed or did not start.
        const int status = QProcess::execute(QCoreApplication::applicationFilePath(), {part});
        if (status != 0) {
            std::fprintf(stderr, "%s ended with %d\n", qPrintable(part), status);
            haveAllRun = false;
        }
    }
    return haveAllRun ? 0 : 1;
}
