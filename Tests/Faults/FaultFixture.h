#pragma once

#include "Faults/FaultHome.h"
#include "Faults/FaultScenario.h"
#include "Support/CommandRun.h"
#include "demo-service/DemoService.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace quorvane {

/// A call that counted, as FailOneCall.cpp reports it.
struct Call
{
    int index = 0;
    QByteArray name;
    QByteArray path;
};

/// Which call fails in a run, and how. FailOneCall.cpp tells what the fields mean; 0 is none.
struct FaultPlan
{
    int nth = 0;
    int error = 0;
    bool isShort = false;
    int allocationNth = 0;
    qint64 allocationAbove = 0;
};

/// How one call is made to fail.
struct Fault
{
    int error = 0;
    bool isShort = false;
    const char *title = "";
};

/// A call and how it fails.
struct Attempt
{
    Call call;
    Fault fault;

    [[nodiscard]] FaultPlan plan() const { return {.nth = call.index, .error = fault.error, .isShort = fault.isShort}; }
};

/// Which of the ways to fail that a call has.
enum class Kinds { OneInTurn, All };

[[nodiscard]] std::vector<Attempt> attemptsAt(const std::vector<Call> &calls, Kinds kinds);

/// Whether the tests were asked to try everything.
[[nodiscard]] bool isLongForm();

/// What came of many runs.
struct Faults
{
    int tried = 0;
    int happened = 0; ///< In so many runs the call that was to fail was reached.
    QStringList wrong;
};

/// Runs of the program in homes of their own, with services that answer tiny pictures, and what is to be said of them
/// afterwards. Nothing here belongs to one thread but what the tests change before they begin.
class FaultFixture : public testing::Test
{
  protected:
    FaultFixture();

    /// A home for one run. It lies in memory where that is possible, because every run waits for the disk several
    /// times.
    struct Place
    {
        explicit Place(const std::map<QString, QString> &settings = {});

        [[nodiscard]] QString report() const { return folder.filePath(QStringLiteral("calls")); }
        [[nodiscard]] std::vector<Call> calls() const;

        QTemporaryDir folder;
        FaultHome home;
    };

    [[nodiscard]] QProcessEnvironment environmentIn(const FaultHome &home) const;

    /// The same for a program whose calls are counted and reported, and fail as planned.
    [[nodiscard]] QProcessEnvironment environmentIn(const Place &place, const FaultPlan &plan) const;

    [[nodiscard]] CommandRun run(const Scenario &scenario, const Place &place, const FaultPlan &plan) const;

    /// Whether the call of the attempt was reached in place, and what it was, in words before a finding. The order of
    /// the calls may differ a little from run to run.
    [[nodiscard]] static std::pair<bool, QString> whereOf(const Attempt &attempt, const Place &place);

    /// What is wrong after a run, a line each.
    [[nodiscard]] static QStringList wrongAfter(const Scenario &scenario, const FaultHome &home, const CommandRun &run);

    /// What the next start finds and leaves.
    [[nodiscard]] QStringList wrongAtNextStart(const FaultHome &home) const;

    /// Runs what is to be done for each number below count, a few at a time, on threads; most of a run is waiting and
    /// starting. What each found is put together in the order of the numbers.
    [[nodiscard]] static Faults each(std::size_t count, const std::function<Faults(std::size_t)> &work);

    DemoService service;
    QProcessEnvironment environment;
    QTemporaryDir modelFolder;
};

/// Prints what a test has tried, for those who read along.
void printFaults(const char *name, const char *what, const Faults &faults);

} // namespace quorvane
