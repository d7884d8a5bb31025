// Makes every large allocation of a command fail once, one run for each, and looks at what is left and what was said.

#include "Faults/FaultFixture.h"

#include <QImage>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Allocations above this may fail for lack of memory; below it, nothing can be promised by anybody.
constexpr qint64 kLargeBytes = qint64(1) << 20;

} // namespace

class MemoryFaultTest : public FaultFixture, public testing::WithParamInterface<Scenario>
{
  protected:
    MemoryFaultTest()
    {
        // Noise does not compress, so that the answers are large, too.
        const auto noise = [](QSize size) {
            QImage image(size, QImage::Format_RGB32);
            QRandomGenerator random(1);
            random.fillRange(reinterpret_cast<quint32 *>(image.bits()), image.sizeInBytes() / 4);
            return image;
        };
        service.setPictureMaker([picture = noise({900, 700})](const QString &, QSize) { return picture; });
        service.setEnlarger([picture = noise({1200, 900})](const QImage &, QSize) { return picture; });
    }
};

TEST_P(MemoryFaultTest, aLackOfMemoryIsAClearErrorAndNothingIsLost)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "The sanitizers want to be the first to be loaded.";
#endif
    const Scenario &scenario = GetParam();
    const Place untouched(scenario.settings);
    const CommandRun good = run(scenario, untouched, {.allocationAbove = kLargeBytes});
    ASSERT_EQ(good.status, 0) << good.errors.constData();
    std::vector<Call> seen = untouched.calls();
    std::erase_if(seen, [](const Call &call) { return call.name != "malloc"; });
    ASSERT_FALSE(seen.empty()) << "no large allocation was seen, so nothing was tried";

    const Faults faults = each(seen.size(), [&](std::size_t at) {
        const Call &call = seen[at];
        const Place place(scenario.settings);
        const CommandRun hurt = run(scenario, place, {.allocationNth = call.index, .allocationAbove = kLargeBytes});
        Faults one{.tried = 1, .happened = 1, .wrong = {}};
        QStringList wrong = wrongAfter(scenario, place.home, hurt) + wrongAtNextStart(place.home);
        if ((hurt.output + hurt.errors).contains("bad_alloc")) {
            wrong.append(u"told in words that are not for people"_s);
        }
        for (const QString &line : std::as_const(wrong)) {
            one.wrong.append(
                u"allocation %1 of %2 bytes: %3"_s.arg(call.index).arg(QString::fromUtf8(call.path), line));
        }
        return one;
    });
    printFaults(scenario.name, "large allocations", faults);
    EXPECT_EQ(faults.wrong.join('\n'_L1).toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Every, MemoryFaultTest, testing::ValuesIn(scenarios(Of::LargePictures)),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace quorvane
