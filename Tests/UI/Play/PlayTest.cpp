// Plays a user who does anything in any order, and looks after each deed whether the window shows what is so and did
// what it showed. The deeds come from a seed; a failure is told with its seed and the shortest history that still shows
// it.

#include "UI/Play/Stage.h"

#include <iostream>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What the first deed that goes wrong shows, and which it is; nothing when all are well.
struct Finding
{
    QString what;
    qsizetype deed = -1;
    QMap<qsizetype, QString> lateFrames; ///< By deed.
};

Finding play(const QList<Deed> &deeds)
{
    Stage stage;
    stage.raise();
    Finding finding;
    for (qsizetype index = 0; index < deeds.size() && finding.deed < 0; ++index) {
        if (const QString wrong = stage.play(deeds[index]); !wrong.isEmpty()) {
            finding.what = wrong;
            finding.deed = index;
        }
        if (!stage.lateFrame().isEmpty()) {
            finding.lateFrames.insert(index, stage.lateFrame());
        }
    }
    return finding;
}

/// Of the late frames those that are late whenever the deeds are done again. A machine that has others to serve, too,
/// makes one late here and there, and what we do makes it late each time.
QMap<qsizetype, QString> always(QMap<qsizetype, QString> late, QList<Deed> deeds)
{
    constexpr int kTimes = 2;
    for (int time = 0; time < kTimes && !late.isEmpty(); ++time) {
        deeds.resize(late.lastKey() + 1);
        const QMap<qsizetype, QString> again = play(deeds).lateFrames;
        late.removeIf([&again](const auto &each) { return !again.contains(each.key()); });
    }
    return late;
}

/// Leaves out what is not needed for something to go wrong, by halves, quarters and so on, as long as tries are left.
QList<Deed> shortest(QList<Deed> deeds, int tries)
{
    for (qsizetype piece = deeds.size() / 2; piece > 0; piece /= 2) {
        for (qsizetype at = 0; at + piece < deeds.size() && tries > 0;) {
            QList<Deed> fewer = deeds;
            fewer.remove(at, piece);
            --tries;
            if (const Finding found = play(fewer); found.deed >= 0) {
                fewer.resize(found.deed + 1);
                deeds = fewer;
            } else {
                at += piece;
            }
        }
    }
    return deeds;
}

/// The deeds, a line each.
std::string told(const QList<Deed> &deeds)
{
    QStringList lines;
    for (const Deed &deed : deeds) {
        lines.append(u"  "_s + nameOf(deed));
    }
    return lines.join('\n'_L1).toStdString();
}

} // namespace

class UserPlay : public testing::TestWithParam<quint32>
{
};

TEST_P(UserPlay, theWindowShowsWhatIsSoAndDoesWhatItShows)
{
    const bool isFull = qgetenv("QUORVANE_SOAK") == "full";
    const int count = isFull ? 10'000 : 500;
    QList<Deed> deeds = deedsOf(GetParam(), count);
    const Finding found = play(deeds);
    if (found.deed < 0) {
        const QMap<qsizetype, QString> late = always(found.lateFrames, deeds);
        for (auto each = late.cbegin(); each != late.cend(); ++each) {
            ADD_FAILURE() << "seed " << GetParam() << ", deed " << each.key() << ", "
                          << nameOf(deeds[each.key()]).toStdString() << ": " << each.value().toStdString();
        }
        return;
    }
    // Told at once, because what follows may be ended by the test's time limit.
    std::cerr << "seed " << GetParam() << ", deed " << found.deed << ": " << found.what.toStdString() << std::endl;
    deeds.resize(found.deed + 1);
    if (play(deeds).deed < 0) {
        ADD_FAILURE() << "seed " << GetParam() << ", deed " << found.deed
                      << ", once and not again: " << found.what.toStdString() << "\nthe last deeds:\n"
                      << told(deeds.last(std::min<qsizetype>(deeds.size(), 12)));
        return;
    }
    deeds = shortest(deeds, 60);
    ADD_FAILURE() << "seed " << GetParam() << ", deed " << found.deed << ": " << found.what.toStdString()
                  << "\nthe shortest history found, which ends with \"" << play(deeds).what.toStdString() << "\":\n"
                  << told(deeds);
}

INSTANTIATE_TEST_SUITE_P(Seeds, UserPlay, testing::Values(1U, 20260131U, 777U));

} // namespace quorvane
