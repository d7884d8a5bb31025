// Makes every file call of a command fail once, one run for each, and looks at what is left, what was said, and whether
// both agree. FailOneCall.cpp is what makes them fail.

#include "Faults/FaultHome.h"
#include "Support/CommandRun.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "demo-service/DemoService.h"

#include <QCoreApplication>
#include <QImage>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Allocations above this may fail for lack of memory; below it, nothing can be promised by anybody.
constexpr qint64 kLargeBytes = qint64(1) << 20;

/// A call that counted, as FailOneCall.cpp reports it.
struct Call
{
    int index = 0;
    QByteArray name;
    QByteArray path;
};

/// How one call is made to fail.
struct Fault
{
    int error = 0;
    bool isShort = false;
    const char *title = "";
};

/// What can happen to a call. The first ones are tried in every run of the tests, in turn; all of them in the long
/// form.
std::vector<Fault> faultsOf(const QByteArray &call)
{
    const Fault noSpace{ENOSPC, false, "ENOSPC"};
    const Fault broken{EIO, false, "EIO"};
    const Fault tooMany{EMFILE, false, "EMFILE"};
    const Fault interrupted{EINTR, false, "EINTR"};
    const Fault refused{EACCES, false, "EACCES"};
    if (call == "open") {
        return {tooMany, broken, interrupted, refused};
    }
    if (call == "read") {
        return {broken, interrupted};
    }
    if (call == "write") {
        return {noSpace, {0, true, "half"}, interrupted, broken};
    }
    if (call == "fsync") {
        return {broken, noSpace};
    }
    if (call == "close") {
        return {broken};
    }
    return {refused, noSpace, broken};
}

/// One run of the program with what is to be seen afterwards.
struct Scenario
{
    const char *name;
    QStringList arguments;
    QByteArray input = {};
    FaultHome::Meant meant = {};
    /// Settings that were made before, as arguments of "settings".
    std::vector<QStringList> settings = {};
    /// Whether the files say what a success without a word of problems claims. result is the JSON.
    std::function<bool(const FaultHome &home, const QJsonObject &result)> isDone = {};
};

/// Homes lie in memory where that is possible, because every run waits for the disk several times.
QString homeTemplate()
{
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/FaultTest-XXXXXX"_s;
}

bool isPicture(const QString &path)
{
    return !path.isEmpty() && !QImage(path).isNull();
}

/// A picture with its prompt.
bool isKept(const FaultHome &home, const QString &path, const QString &prompt)
{
    const std::map<QString, QString> prompts = home.prompts();
    const auto entry = prompts.find(QFileInfo(path).fileName());
    return isPicture(path) && entry != prompts.end() && entry->second == prompt;
}

bool isGenerated(const FaultHome &home, const QJsonObject &result)
{
    return isKept(home, result.value("file"_L1).toString(), u"a tower"_s) &&
           home.setting(u"lastPrompt"_s) == u"a tower"_s &&
           home.setting(u"currentWallpaperPath"_s) == result.value("file"_L1).toString();
}

bool isGeneratedAndEnlarged(const FaultHome &home, const QJsonObject &result)
{
    const QString original = result.value("original"_L1).toString();
    // Pictures of the same second may share a name; then there is one picture and no link.
    const bool isOne = original.isEmpty() || original == result.value("file"_L1).toString();
    const std::map<QString, QString> links = home.links();
    const auto link = links.find(QFileInfo(original).fileName());
    return isGenerated(home, result) &&
           (isOne || (isKept(home, original, u"a tower"_s) && link != links.end() &&
                      link->second == QFileInfo(result.value("file"_L1).toString()).fileName()));
}

const QStringList kGenerate{u"generate"_s, u"--prompt"_s, u"a tower"_s};
const FaultHome::Meant kGenerating{.settings = {u"lastPrompt"_s}};

/// Which scenarios.
enum class Of { Everything, LargePictures };

std::vector<Scenario> scenarios(Of which)
{
    const QStringList fourK{u"fourKEnabled"_s, u"true"_s};
    const QStringList local{u"upscaleMethod"_s, u"local"_s};
    const auto by = [](const char *id) { return QStringList{u"providerOverride"_s, QLatin1String(id)}; };
    std::vector<Scenario> all{
        {"generateGemini", kGenerate, {}, kGenerating, {by("gemini")}, isGenerated},
        {"generateGrok", kGenerate, {}, kGenerating, {by("grok")}, isGenerated},
        {"generateOpenAI", kGenerate, {}, kGenerating, {by("openai")}, isGenerated},
        {"generateAndEnlargeByService", kGenerate, {}, kGenerating, {by("grok"), fourK}, isGeneratedAndEnlarged},
        {"generateAndEnlargeHere", kGenerate, {}, kGenerating, {by("grok"), fourK, local}, isGeneratedAndEnlarged},
        {"upscaleByService",
         {u"upscale"_s, u"a.png"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &result) {
             return isKept(home, result.value("file"_L1).toString(), u"a lake"_s) && home.links().contains(u"a.png"_s);
         }},
        {"upscaleHere",
         {u"upscale"_s, u"a.png"_s},
         {},
         {},
         {local},
         [](const FaultHome &home, const QJsonObject &result) {
             return isKept(home, result.value("file"_L1).toString(), u"a lake"_s) && home.links().contains(u"a.png"_s);
         }},
        {"set",
         {u"set"_s, u"a.png"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) {
             return home.setting(u"currentWallpaperPath"_s) == home.library() + u"/a.png"_s;
         }},
        {"favorite",
         {u"favorite"_s, u"a.png"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.favorites().contains(u"a.png"_s); }},
        {"noFavorite",
         {u"favorite"_s, u"b.png"_s},
         {},
         {.favorites = {u"b.png"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return !home.favorites().contains(u"b.png"_s); }},
        {"delete",
         {u"delete"_s, u"b.png"_s},
         {},
         {.pictures = {u"b.png"_s, u"b4k.png"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) {
             return !QFile::exists(home.library() + u"/b.png"_s) && !QFile::exists(home.library() + u"/b4k.png"_s) &&
                    !home.prompts().contains(u"b.png"_s) && home.links().empty() && home.favorites().isEmpty();
         }},
        {"keySet",
         {u"key"_s, u"set"_s, u"grok"_s},
         "NEW KEY\n",
         {.keys = {u"grok"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.keys().at(u"grok"_s) == u"NEW KEY"_s; }},
        {"keyDelete",
         {u"key"_s, u"delete"_s, u"grok"_s},
         {},
         {.keys = {u"grok"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return !home.keys().contains(u"grok"_s); }},
        {"settings",
         {u"settings"_s, u"intervalMinutes"_s, u"120"_s},
         {},
         {.settings = {u"intervalMinutes"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.setting(u"intervalMinutes"_s) == u"120"_s; }},
        {"settingsUnset",
         {u"settings"_s, u"--unset"_s, u"intervalMinutes"_s},
         {},
         {.settings = {u"intervalMinutes"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.setting(u"intervalMinutes"_s).isEmpty(); }},
        {"autoOn",
         {u"auto"_s, u"on"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.setting(u"autoEnabled"_s) == u"true"_s; }},
        {"modelInstall",
         {u"model"_s, u"install"_s, QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx")},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) {
             return contentOf(home.path() + u"/.local/share/quorvane/models/RealESRGAN.onnx"_s) ==
                    contentOf(QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx"));
         }},
    };
    if (which == Of::LargePictures) {
        std::erase_if(all, [](const Scenario &scenario) {
            return scenario.arguments.first() != "generate"_L1 || scenario.settings.size() == 0;
        });
    }
    return all;
}

void PrintTo(const Scenario &scenario, std::ostream *out)
{
    *out << scenario.name;
}

std::string nameOf(const testing::TestParamInfo<Scenario> &info)
{
    return info.param.name;
}

} // namespace

class FaultTest : public testing::TestWithParam<Scenario>
{
  protected:
    FaultTest()
    {
        service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(Qt::darkCyan);
            return image;
        });
        environment = QProcessEnvironment::systemEnvironment();
        for (const char *name :
             {"DISPLAY", "WAYLAND_DISPLAY", "SWAYSOCK", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}) {
            environment.remove(QLatin1String(name));
        }
        for (const char *name : {"QUORVANE_GEMINI_BASE_URL", "QUORVANE_XAI_BASE_URL", "QUORVANE_OPENAI_BASE_URL"}) {
            environment.insert(QLatin1String(name), service.baseAddress().toString());
        }
        environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, u"/bin/true"_s);
        environment.insert(u"XDG_DATA_DIRS"_s, modelFolder.path());
        EXPECT_TRUE(putFile(modelFolder.path() + u"/quorvane/models/RealESRGAN.onnx"_s,
                            contentOf(QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx"))));
        report = reportFolder.path() + u"/calls"_s;
    }

    [[nodiscard]] QProcessEnvironment environmentIn(const QString &home) const
    {
        QProcessEnvironment result = environment;
        result.insert(u"HOME"_s, home);
        result.insert(u"XDG_CONFIG_HOME"_s, home + u"/.config"_s);
        result.insert(u"XDG_DATA_HOME"_s, home + u"/.local/share"_s);
        result.insert(u"XDG_STATE_HOME"_s, home + u"/.local/state"_s);
        result.insert(u"XDG_CACHE_HOME"_s, home + u"/.cache"_s);
        return result;
    }

    [[nodiscard]] QProcessEnvironment faultyEnvironment(const FaultHome &home) const
    {
        QProcessEnvironment ours = environmentIn(home.path());
        ours.insert(u"LD_PRELOAD"_s, QStringLiteral(FAIL_ONE_CALL));
        ours.insert(u"FAIL_PROGRAM"_s, QFileInfo(QStringLiteral(QUORVANE_PROGRAM)).canonicalFilePath());
        ours.insert(u"FAIL_UNDER"_s, home.path());
        ours.insert(u"FAIL_REPORT"_s, report);
        return ours;
    }

    /// Runs the scenario with the fault at call nth (0: none).
    [[nodiscard]] CommandRun run(const Scenario &scenario, const FaultHome &home, int nth, const Fault &fault) const
    {
        QProcessEnvironment ours = faultyEnvironment(home);
        ours.insert(u"FAIL_NTH"_s, QString::number(nth));
        ours.insert(u"FAIL_ERRNO"_s, QString::number(fault.error));
        ours.insert(u"FAIL_SHORT"_s, fault.isShort ? u"1"_s : u"0"_s);
        QFile::remove(report);
        return runQuorvane(scenario.arguments + QStringList{u"--json"_s}, ours, scenario.input, home.path());
    }

    /// The same with the allocation nth of more than kLargeBytes failing (0: none).
    [[nodiscard]] CommandRun runWithoutMemory(const Scenario &scenario, const FaultHome &home, int nth) const
    {
        QProcessEnvironment ours = faultyEnvironment(home);
        ours.insert(u"FAIL_ALLOCATION_NTH"_s, QString::number(nth));
        ours.insert(u"FAIL_ALLOCATION_ABOVE"_s, QString::number(kLargeBytes));
        QFile::remove(report);
        return runQuorvane(scenario.arguments + QStringList{u"--json"_s}, ours, scenario.input, home.path());
    }

    [[nodiscard]] std::vector<Call> calls() const
    {
        std::vector<Call> found;
        for (const QByteArray &line : contentOf(report).split('\n')) {
            const QList<QByteArray> words = line.split(' ');
            if (words.size() >= 3) {
                found.push_back({words[0].toInt(), words[1], line.mid(words[0].size() + words[1].size() + 2)});
            }
        }
        return found;
    }

    void prepare(const Scenario &scenario, const FaultHome &home) const
    {
        for (const QStringList &setting : scenario.settings) {
            const CommandRun made = runQuorvane(QStringList{u"settings"_s} + setting, environmentIn(home.path()));
            ASSERT_EQ(made.status, 0) << made.errors.constData();
        }
    }

    /// What is wrong after a run, a line each.
    [[nodiscard]] QStringList wrongAfter(const Scenario &scenario, const FaultHome &home, const CommandRun &run) const
    {
        QStringList wrong;
        for (const QString &line : home.lost(scenario.meant)) {
            wrong.append(u"lost: "_s + line);
        }
        for (const QString &line : home.openedKeys()) {
            wrong.append(u"others may read "_s + line);
        }
        if (run.status < 0) {
            wrong.append(u"crashed or did not end"_s);
            return wrong;
        }
        const QJsonDocument document = QJsonDocument::fromJson("[" + run.output + "]");
        if (run.output.count('\n') != 1 || document.array().size() != 1) {
            wrong.append(u"standard output is no JSON value: "_s + QString::fromUtf8(run.output));
            return wrong;
        }
        const QJsonObject result = document.array().first().toObject();
        const bool saysError = result.value("isError"_L1).toBool();
        if (saysError != (run.status != 0) && result.contains("isError"_L1)) {
            wrong.append(u"status %1, but isError is %2"_s.arg(run.status).arg(saysError));
        }
        if (run.status != 0 && result.value("status"_L1).toString().isEmpty() && run.errors.trimmed().isEmpty()) {
            wrong.append(u"ended with %1 without a word"_s.arg(run.status));
        }
        const bool saysProblems = !result.value("problems"_L1).toArray().isEmpty();
        if (run.status == 0 && !saysProblems && scenario.isDone && !scenario.isDone(home, result)) {
            wrong.append(u"told as done, but is not: "_s + QString::fromUtf8(run.output.trimmed()));
        }
        return wrong;
    }

    /// What the next start finds and leaves.
    [[nodiscard]] QStringList wrongAtNextStart(const FaultHome &home) const
    {
        QStringList wrong;
        const CommandRun next = runQuorvane({u"status"_s, u"--json"_s}, environmentIn(home.path()));
        if (next.status != 0) {
            wrong.append(u"the next start ends with %1"_s.arg(next.status));
        }
        for (const QString &file : home.temporaries()) {
            wrong.append(u"left behind: "_s + file);
        }
        return wrong;
    }

    DemoService service;
    QProcessEnvironment environment;
    QTemporaryDir modelFolder;
    QTemporaryDir reportFolder;
    QString report;
};

TEST_P(FaultTest, nothingIsLostAndWhatIsToldIsSo)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    const Scenario &scenario = GetParam();
    const bool all = qgetenv("QUORVANE_SOAK") == "full";

    QTemporaryDir plain(homeTemplate());
    const FaultHome untouched(plain.path());
    prepare(scenario, untouched);
    const CommandRun good = run(scenario, untouched, 0, {});
    ASSERT_EQ(good.status, 0) << good.errors.constData();
    ASSERT_EQ(wrongAfter(scenario, untouched, good).join('\n'_L1).toStdString(), "") << good.output.constData();
    const std::vector<Call> seen = calls();
    ASSERT_GT(seen.size(), 5U) << "hardly any call was seen, so nothing was tried";

    int tried = 0;
    int happened = 0;
    QStringList found;
    for (const Call &call : seen) {
        std::vector<Fault> faults = faultsOf(call.name);
        if (!all) {
            const Fault one = faults[static_cast<std::size_t>(call.index) % faults.size()];
            faults = {one};
        }
        for (const Fault &fault : faults) {
            QTemporaryDir folder(homeTemplate());
            const FaultHome home(folder.path());
            prepare(scenario, home);
            const CommandRun hurt = run(scenario, home, call.index, fault);
            const std::vector<Call> now = calls();
            ++tried;
            happened += static_cast<std::size_t>(call.index) <= now.size() ? 1 : 0;
            const QStringList wrong = wrongAfter(scenario, home, hurt) + wrongAtNextStart(home);
            for (const QString &line : wrong) {
                QByteArray hit = static_cast<std::size_t>(call.index) <= now.size()
                                     ? now[static_cast<std::size_t>(call.index) - 1].path
                                     : call.path;
                hit.replace(home.path().toUtf8(), "~");
                found.append(u"%1 of %2 (%3, call %4): %5"_s
                                 .arg(QLatin1String(fault.title), QString::fromUtf8(call.name), QString::fromUtf8(hit))
                                 .arg(call.index)
                                 .arg(line));
            }
        }
    }
    std::printf("[   FAULTS ] %s: %d calls failed once, %lld of them with something wrong\n", scenario.name, tried,
                static_cast<long long>(found.size()));
    EXPECT_GT(happened, tried / 2) << "most faults never happened";
    EXPECT_EQ(found.join('\n'_L1).toStdString(), "");
}

/// What works on large pictures.
class MemoryFaultTest : public FaultTest
{
  protected:
    MemoryFaultTest()
    {
        // Noise does not compress, so that the answers are large, too.
        service.setPictureMaker([](const QString &prompt, QSize /*size*/) {
            QImage image(900, 700, QImage::Format_RGB32);
            QRandomGenerator random(static_cast<quint32>(qHash(prompt)));
            random.fillRange(reinterpret_cast<quint32 *>(image.bits()), image.sizeInBytes() / 4);
            return image;
        });
    }
};

TEST_P(MemoryFaultTest, aLackOfMemoryIsAClearErrorAndNothingIsLost)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    const Scenario &scenario = GetParam();
    QTemporaryDir plain(homeTemplate());
    const FaultHome untouched(plain.path());
    prepare(scenario, untouched);
    const CommandRun good = runWithoutMemory(scenario, untouched, 0);
    ASSERT_EQ(good.status, 0) << good.errors.constData();
    std::vector<Call> seen = calls();
    std::erase_if(seen, [](const Call &call) { return call.name != "malloc"; });
    ASSERT_FALSE(seen.empty()) << "no large allocation was seen, so nothing was tried";

    QStringList found;
    for (const Call &call : seen) {
        QTemporaryDir folder(homeTemplate());
        const FaultHome home(folder.path());
        prepare(scenario, home);
        const CommandRun hurt = runWithoutMemory(scenario, home, call.index);
        for (const QString &line : wrongAfter(scenario, home, hurt) + wrongAtNextStart(home)) {
            found.append(u"allocation %1 of %2 bytes: %3"_s.arg(call.index).arg(QString::fromUtf8(call.path), line));
        }
    }
    std::printf("[   FAULTS ] %s: %zu large allocations failed once, %lld with something wrong\n", scenario.name,
                seen.size(), static_cast<long long>(found.size()));
    EXPECT_EQ(found.join('\n'_L1).toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Every, MemoryFaultTest, testing::ValuesIn(scenarios(Of::LargePictures)), nameOf);
INSTANTIATE_TEST_SUITE_P(Every, FaultTest, testing::ValuesIn(scenarios(Of::Everything)), nameOf);

} // namespace quorvane
