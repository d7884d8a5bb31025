#include "Platform/Desktops/DesktopPictureXfce.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/SessionDesktops.h"
#include "Platform/Pictures/HandedPicture.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/Threads/TimeLimit.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureXfce)
};

const QString kPicture = u"last-image"_s;
const QString kStyle = u"image-style"_s;
/// As large as needed to fill the screen, cropped around the centre.
constexpr int kZoomed = 5;

Result<QVariantList> ask(const MessageBus &bus, const QString &method, const QVariantList &arguments)
{
    return bus.call(u"org.xfce.Xfconf"_s, u"/org/xfce/Xfconf"_s, u"org.xfce.Xfconf"_s, method, arguments);
}

/// Everything below "/backdrop".
Result<QVariantMap> backdrops(const MessageBus &bus)
{
    const auto answer = ask(bus, u"GetAllProperties"_s, {u"xfce4-desktop"_s, u"/backdrop"_s});
    return answer ? Result(qdbus_cast<QVariantMap>(answer->value(0))) : answer.failure();
}

int workspaceCount(const MessageBus &bus)
{
    const auto answer = ask(bus, u"GetProperty"_s, {u"xfwm4"_s, u"/general/workspace_count"_s});
    return answer ? qvariant_cast<QDBusVariant>(answer->value(0)).variant().toInt() : 0;
}

Failure silence()
{
    return {Tr::tr("XFCE does not answer")};
}

Result<> show(const MessageBus &bus, const QString &path, const QList<Screen> &screens, const std::stop_token &stop)
{
    const SessionDesktop &xfce = *sessionDesktop(DesktopBackend::Xfce, {});
    if (Result<> found = findPainter(xfce, bus); !found) {
        return found;
    }
    // There is nothing before the desktop's first start has come that far; any other failure comes up again below.
    const Result<QVariantMap> told = backdrops(bus);
    const QVariantMap now = told ? *told : QVariantMap();
    const int workspaces = workspaceCount(bus);
    const QVariantMap wanted = DesktopPictureXfce::propertiesFor(path, screens, workspaces, now);
    for (auto property = wanted.begin(); property != wanted.end(); ++property) {
        const QVariant value = QVariant::fromValue(QDBusVariant(property.value()));
        if (stop.stop_requested()) {
            return silence();
        }
        if (now.value(property.key()) == property.value()) {
            continue;
        }
        if (const auto set = ask(bus, u"SetProperty"_s, {u"xfce4-desktop"_s, property.key(), value}); !set) {
            return set.failure();
        }
    }
    const Result<QVariantMap> kept = backdrops(bus);
    if (!kept) {
        return kept.failure();
    }
    // At its first start XFCE takes away what older versions have left.
    const QVariantMap needed = DesktopPictureXfce::propertiesFor(path, screens, workspaces, {});
    for (auto property = wanted.begin(); property != wanted.end(); ++property) {
        const bool mayBeGone = !needed.contains(property.key());
        if (kept->value(property.key(), mayBeGone ? property.value() : QVariant()) != property.value()) {
            return Failure{Tr::tr("XFCE did not keep the setting \"%1\"").arg(property.key())};
        }
    }
    return findPainter(xfce, bus);
}

} // namespace

DesktopPictureXfce::DesktopPictureXfce(QString busAddress, std::function<QList<Screen>()> screens, QString reason,
                                       std::chrono::milliseconds limit)
    : m_busAddress(std::move(busAddress))
    , m_screens(std::move(screens))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

Result<> DesktopPictureXfce::setPicture(const QString &path, const QList<Screen> &screens)
{
    const Result<HandedPicture> handed = handedPicture(path, [](const QString &) { return true; });
    if (!handed) {
        return handed.failure();
    }
    const QDeadlineTimer deadline(m_limit);
    const auto result = withinLimit(m_limit, [=, address = m_busAddress](const std::stop_token &stop) {
        const MessageBus bus(address, deadline);
        return show(bus, handed->path, screens, stop);
    });
    if (!result || !*result) {
        return result ? *result : silence();
    }
    PictureCopy::removeAllBut(handed->isCopy ? handed->path : QString());
    return kDone;
}

QVariantMap DesktopPictureXfce::propertiesFor(const QString &path, const QList<Screen> &screens, int workspaces,
                                              const QVariantMap &now)
{
    QStringList places;
    const QString pictureEnding = '/'_L1 + kPicture;
    for (auto property = now.begin(); property != now.end(); ++property) {
        if (property.key().endsWith(pictureEnding)) {
            places.append(property.key().chopped(pictureEnding.size()));
        }
    }
    for (const Screen &screen : screens) {
        for (int workspace = 0; workspace < std::max(workspaces, 1); ++workspace) {
            places.append(u"/backdrop/screen0/monitor%1/workspace%2"_s.arg(screen.name, QString::number(workspace)));
        }
    }
    QVariantMap wanted;
    for (const QString &place : std::as_const(places)) {
        wanted.insert(place + '/'_L1 + kStyle, kZoomed); // Set before the picture, as the map's order is.
        // XFCE 4.18 watches the file, 4.20 only the setting. Two slashes at the beginning mean what one does.
        const QString key = place + pictureEnding;
        wanted.insert(key, now.value(key) == path ? '/'_L1 + path : path);
    }
    return wanted;
}

} // namespace quorvane
