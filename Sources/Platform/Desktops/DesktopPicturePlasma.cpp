#include "Platform/Desktops/DesktopPicturePlasma.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/Protocols/PlasmaScript.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/Threads/TimeLimit.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPicturePlasma)
};

const QString kShell = u"org.kde.plasmashell"_s;

/// How long a new screen's desktop is waited for. Mirrored screens never get one each, so it is not the whole limit.
constexpr std::chrono::milliseconds kNewScreenLimit{2000};
constexpr std::chrono::milliseconds kLookInterval{100};

using Report = PlasmaScript::Report;

/// How trying to set the picture ended.
struct Attempt
{
    QStringList files; ///< What the desktops have after it; empty where Plasma did not say.
    Result<> outcome;
};

Failure silence()
{
    return {Tr::tr("Plasma does not answer")};
}

/// A failure comes in Plasma's own words where it has any.
Result<Report> evaluate(const MessageBus &bus, const QString &script)
{
    if (!bus.isConnected()) {
        return MessageBus::unreachable();
    }
    if (!bus.isOwned(kShell)) {
        return Failure{Tr::tr("Plasma's desktop does not run (org.kde.plasmashell is not on the session bus)")};
    }
    const Result<QVariantList> answer =
        bus.call(kShell, u"/PlasmaShell"_s, u"org.kde.PlasmaShell"_s, u"evaluateScript"_s, {script});
    if (!answer) {
        return Failure{Tr::tr("Plasma: %1").arg(answer.failure().words)};
    }
    const QString printed = answer->value(0).toString();
    const std::optional<Report> report = PlasmaScript::reportOf(printed);
    return report ? Result<Report>(*report) : Failure{Tr::tr("Plasma answered: %1").arg(printed.trimmed())};
}

Attempt setEverywhere(const QString &busAddress, const QString &url, qsizetype screens, const std::stop_token &stop,
                      QDeadlineTimer deadline)
{
    const MessageBus bus(busAddress, deadline);
    const QDeadlineTimer newScreens(kNewScreenLimit);
    while (true) {
        if (stop.stop_requested()) {
            return {{}, silence()};
        }
        const Result<Report> report = evaluate(bus, PlasmaScript::setting(url));
        if (!report) {
            return {{}, report.failure()};
        }
        if (report->visible() >= screens || newScreens.hasExpired() || deadline.hasExpired()) {
            return {report->files(), report->isEverywhere(url)};
        }
        std::this_thread::sleep_for(kLookInterval);
    }
}

} // namespace

DesktopPicturePlasma::DesktopPicturePlasma(QString busAddress, SessionDisplay display, QString reason,
                                           std::chrono::milliseconds limit)
    : m_busAddress(std::move(busAddress))
    , m_display(std::move(display))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

QList<Screen> DesktopPicturePlasma::screens()
{
    return m_display.screens(m_limit);
}

Result<> DesktopPicturePlasma::setPicture(const QString &path, const QList<Screen> &screens)
{
    const QDeadlineTimer deadline(m_limit);
    const auto shown = withinLimit(m_limit, [address = m_busAddress, deadline](const std::stop_token &) {
        return evaluate(MessageBus(address, deadline), PlasmaScript::reading());
    });
    if (!shown || !*shown) {
        return shown ? shown->failure() : silence();
    }
    // Decoding and copying do not count: they are not Plasma's time.
    const std::chrono::milliseconds left(std::max<qint64>(1, deadline.remainingTime()));
    const Result<HandedPicture> handed = m_handover.handOver(path, {.loaded = (*shown)->files()});
    if (!handed) {
        return handed.failure();
    }
    const auto result = withinLimit(left, [address = m_busAddress, url = PlasmaScript::urlOf(handed->path),
                                           count = screens.size(), left](const std::stop_token &stop) {
        return setEverywhere(address, url, count, stop, QDeadlineTimer(left));
    });
    if (!result) {
        return silence(); // It may still be done later, so what was handed stays.
    }
    const QStringList &stored = result->files;
    if (!result->outcome) {
        if (!stored.contains(handed->path)) {
            m_handover.failed(*handed);
        }
        return result->outcome;
    }
    m_handover.succeeded(path, *handed);
    // The desktop of another activity, or of a screen that is away, may still have an older copy.
    const bool isNeeded = std::any_of(stored.begin(), stored.end(), [&](const QString &file) {
        return file != handed->path && PictureCopy::isOurs(file);
    });
    if (!isNeeded) {
        PictureCopy::removeAllBut(handed->path);
    }
    return kDone;
}

} // namespace quorvane
