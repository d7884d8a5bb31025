// The settings take any value and report success, whether anybody draws or not: so the picture is decoded first, and
// the program that draws must be there before and after.

#include "Platform/Desktops/DesktopPictureGnome.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/Protocols/SettingsGroup.h"
#include "Platform/Pictures/HandedPicture.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/Threads/TimeLimit.h"

#include <QCoreApplication>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureGnome)
};

QString valueFor(const BackgroundSettings &settings, const QString &path)
{
    return settings.form == BackgroundSettings::Form::Path
               ? path
               : QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded));
}

/// The value for a path, but never the one that is there already: who draws hears only of changes, and must draw anew
/// when screens came. Two slashes at the beginning mean what one does.
QString changedValueFor(const BackgroundSettings &settings, const QString &path, const QString &current)
{
    const QString value = valueFor(settings, path);
    return settings.form == BackgroundSettings::Form::Path && value == current ? '/'_L1 + value : value;
}

/// What the settings hold as the picture.
Result<QString> currentOf(const SessionDesktop &desktop, const QString &busAddress, const QDeadlineTimer &deadline)
{
    if (const Result<> painter = findPainter(desktop, MessageBus(busAddress, deadline)); !painter) {
        return painter.failure();
    }
    const SettingsGroup group(desktop.settings.schema);
    if (const Result<> usable = group.usable(); !usable) {
        return usable.failure();
    }
    return group.text(desktop.settings.pictureKeys.constFirst());
}

/// current is what the settings hold.
Result<HandedPicture> handedTo(const BackgroundSettings &settings, const QString &path, const QString &current)
{
    if (settings.content == BackgroundSettings::Content::Followed) {
        return handedPicture(path, [](const QString &) { return true; });
    }
    // A screen that came makes no new copy of what is shown already.
    const QString shown = settings.form == BackgroundSettings::Form::Path ? current : QUrl(current).toLocalFile();
    if (PictureCopy::isCopyOf(shown, path)) {
        return HandedPicture{shown, true};
    }
    return handedPicture(path, [&](const QString &candidate) { return candidate != path; });
}

Result<> change(const BackgroundSettings &settings, const QString &value, const std::stop_token &stop)
{
    SettingsGroup group(settings.schema);
    if (Result<> usable = group.usable(); !usable || stop.stop_requested()) {
        return usable; // Where nobody waits any more, nobody reads it.
    }
    QVariantMap values;
    for (const QString &key : settings.pictureKeys) {
        if (group.hasKey(key)) {
            values.insert(key, value);
        }
    }
    for (auto other = settings.others.begin(); other != settings.others.end(); ++other) {
        if (group.hasKey(other.key())) {
            values.insert(other.key(), other.value());
        }
    }
    return group.change(values);
}

} // namespace

DesktopPictureGnome::DesktopPictureGnome(QString name, SessionDesktop desktop, QString busAddress,
                                         std::function<QList<Screen>()> screens, QString reason,
                                         std::chrono::milliseconds limit)
    : m_name(std::move(name))
    , m_desktop(std::move(desktop))
    , m_busAddress(std::move(busAddress))
    , m_screens(std::move(screens))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

Result<> DesktopPictureGnome::setPicture(const QString &path, const QList<Screen> & /*screens*/)
{
    const Failure silence{Tr::tr("The settings of %1 do not answer").arg(m_desktop.title)};
    const QDeadlineTimer asking(m_limit);
    const auto current =
        withinLimit(m_limit, [desktop = m_desktop, address = m_busAddress, asking](const std::stop_token &) {
            return currentOf(desktop, address, asking);
        });
    if (!current || !*current) {
        return current ? current->failure() : silence;
    }
    const std::chrono::milliseconds left(asking.remainingTime()); // The time to decode is nobody's but ours.

    const BackgroundSettings settings = m_desktop.settings;
    const Result<HandedPicture> handed = handedTo(settings, path, **current);
    if (!handed) {
        return handed.failure();
    }
    const QString value = changedValueFor(settings, handed->path, **current);
    const QDeadlineTimer changing(left);
    const auto result =
        withinLimit(left, [=, desktop = m_desktop, address = m_busAddress](const std::stop_token &stop) {
            Result<> changed = change(settings, value, stop);
            return changed ? findPainter(desktop, MessageBus(address, changing)) : changed;
        });
    if (!result || !*result) {
        return result ? *result : silence;
    }
    PictureCopy::removeAllBut(handed->isCopy ? handed->path : QString());
    return kDone;
}

} // namespace quorvane
