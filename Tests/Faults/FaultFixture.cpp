#include "Faults/FaultFixture.h"

#include "Support/Files.h"

#include <QImage>
#include <QJsonDocument>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString placeTemplate()
{
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/FaultTest-XXXXXX"_s;
}

/// What can happen to a call.
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

} // namespace

std::vector<Attempt> attemptsAt(const std::vector<Call> &calls, Kinds kinds)
{
    std::vector<Attempt> attempts;
    for (const Call &call : calls) {
        const std::vector<Fault> faults = faultsOf(call.name);
        for (std::size_t at = 0; at < faults.size(); ++at) {
            if (kinds == Kinds::All || at == static_cast<std::size_t>(call.index) % faults.size()) {
                attempts.push_back({call, faults[at]});
            }
        }
    }
    return attempts;
}

bool isLongForm()
{
    return qgetenv("QUORVANE_SOAK") == "full";
}

FaultFixture::FaultFixture()
{
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        return image;
    });
    service.setEnlarger([](const QImage &original, QSize /*size*/) { return original.scaled(original.size() * 4); });
    environment = lonelyEnvironment(service.baseAddress().toString());
    environment.insert(u"XDG_DATA_DIRS"_s, modelFolder.path());
    EXPECT_TRUE(putFile(modelFolder.path() + u"/quorvane/models/RealESRGAN.onnx"_s,
                        contentOf(QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx"))));
}

FaultFixture::Place::Place(const std::map<QString, QString> &settings)
    : folder(placeTemplate())
    , home(folder.path() + u"/home"_s, settings)
{
}

std::vector<Call> FaultFixture::Place::calls() const
{
    std::vector<Call> found;
    for (const QByteArray &line : contentOf(report()).split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() >= 3) {
            found.push_back({words[0].toInt(), words[1], line.mid(words[0].size() + words[1].size() + 2)});
        }
    }
    return found;
}

QProcessEnvironment FaultFixture::environmentIn(const FaultHome &home) const
{
    QProcessEnvironment result = environment;
    result.insert(u"HOME"_s, home.path());
    result.insert(u"XDG_CONFIG_HOME"_s, home.path() + u"/.config"_s);
    result.insert(u"XDG_DATA_HOME"_s, home.path() + u"/.local/share"_s);
    result.insert(u"XDG_STATE_HOME"_s, home.path() + u"/.local/state"_s);
    result.insert(u"XDG_CACHE_HOME"_s, home.path() + u"/.cache"_s);
    return result;
}

QProcessEnvironment FaultFixture::environmentIn(const Place &place, const FaultPlan &plan) const
{
    QProcessEnvironment ours = environmentIn(place.home);
    ours.insert(u"LD_PRELOAD"_s, QStringLiteral(FAIL_ONE_CALL));
    ours.insert(u"FAIL_PROGRAM"_s, QFileInfo(QStringLiteral(QUORVANE_PROGRAM)).canonicalFilePath());
    ours.insert(u"FAIL_UNDER"_s, place.home.path());
    ours.insert(u"FAIL_REPORT"_s, place.report());
    ours.insert(u"FAIL_NTH"_s, QString::number(plan.nth));
    ours.insert(u"FAIL_ERRNO"_s, QString::number(plan.error));
    ours.insert(u"FAIL_SHORT"_s, plan.isShort ? u"1"_s : u"0"_s);
    ours.insert(u"FAIL_ALLOCATION_NTH"_s, QString::number(plan.allocationNth));
    ours.insert(u"FAIL_ALLOCATION_ABOVE"_s, QString::number(plan.allocationAbove));
    return ours;
}

CommandRun FaultFixture::run(const Scenario &scenario, const Place &place, const FaultPlan &plan) const
{
    return runQuorvane(scenario.arguments + QStringList{u"--json"_s}, environmentIn(place, plan), scenario.input,
                       place.home.path());
}

std::pair<bool, QString> FaultFixture::whereOf(const Attempt &attempt, const Place &place)
{
    const auto &[call, fault] = attempt;
    const std::vector<Call> now = place.calls();
    const auto index = static_cast<std::size_t>(call.index);
    const bool hasHappened = index <= now.size();
    const Call &hit = hasHappened ? now[index - 1] : call;
    QByteArray path = hit.path;
    path.replace(place.home.path().toUtf8(), "~");
    return {hasHappened, u"%1 of %2 (%3, call %4): "_s
                             .arg(QLatin1String(fault.title), QString::fromUtf8(hit.name), QString::fromUtf8(path))
                             .arg(call.index)};
}

QStringList FaultFixture::wrongAfter(const Scenario &scenario, const FaultHome &home, const CommandRun &run)
{
    QStringList wrong;
    for (const QString &line : home.lost(scenario.meant)) {
        wrong.append(u"lost: "_s + line);
    }
    for (const QString &line : home.openedKeys()) {
        wrong.append(u"others may read "_s + line);
    }
    if (run.status < 0) {
        wrong.append(u"crashed or did not end: "_s + QString::fromUtf8(run.errors).trimmed());
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

QStringList FaultFixture::wrongAtNextStart(const FaultHome &home) const
{
    QStringList wrong;
    const CommandRun next = runQuorvane({u"status"_s, u"--json"_s}, environmentIn(home));
    if (next.status != 0) {
        wrong.append(u"the next start ends with %1"_s.arg(next.status));
    }
    for (const QString &file : home.temporaries()) {
        wrong.append(u"left behind: "_s + file);
    }
    return wrong;
}

Faults FaultFixture::each(std::size_t count, const std::function<Faults(std::size_t)> &work)
{
    std::vector<Faults> found(count);
    std::atomic<std::size_t> next{0};
    std::vector<std::thread> threads(2 * std::max(1U, std::thread::hardware_concurrency()));
    for (std::thread &thread : threads) {
        thread = std::thread([&] {
            for (std::size_t at = next++; at < count; at = next++) {
                found[at] = work(at);
            }
        });
    }
    Faults all;
    for (std::thread &thread : threads) {
        thread.join();
    }
    for (const Faults &faults : found) {
        all.tried += faults.tried;
        all.happened += faults.happened;
        all.wrong += faults.wrong;
    }
    return all;
}

void printFaults(const char *name, const char *what, const Faults &faults)
{
    std::printf("[   FAULTS ] %s: %d %s failed once, %lld of them with something wrong\n", name, faults.happened, what,
                static_cast<long long>(faults.wrong.size()));
}

} // namespace quorvane
