#include "UI/Play/Sight.h"

#include "Manager/SettingsKeys.h"
#include "Storage/SideFile.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QString Sight::filesDiffer() const
{
    const QStringList disk = picturesOnDisk();
    for (const QString &url : manager->history()) {
        if (!disk.contains(imageName(url))) {
            return u"the history has %1, which is not on the disk"_s.arg(imageName(url));
        }
    }
    QStringList kept = readTextList(ImageStore::favoritesPath());
    QStringList told(manager->favorites().begin(), manager->favorites().end());
    kept.sort();
    told.sort();
    if (kept != told) {
        return u"favourites are %1 on the disk and %2 in the manager"_s.arg(kept.join(' '_L1), told.join(' '_L1));
    }
    // Settings are written behind the caller's back, and what is on its way is neither the old nor the new.
    if (const Result<> kept = defaults->sync(); !kept) {
        return u"the settings are not kept: "_s + kept.failure().words;
    }
    const UserDefaults settings;
    if (const QString stored = settings.text(SettingsKeys::kLastPrompt).value_or(QString());
        stored != manager->prompt()) {
        return u"the stored prompt is \"%1\" and not \"%2\""_s.arg(stored, manager->prompt());
    }
    return {};
}

QString Sight::lookDiffers() const
{
    const QColor page = window->color();
    const QColor wanted = QGuiApplication::palette().color(QPalette::Window);
    if ((qGray(page.rgb()) < 128) != (qGray(wanted.rgb()) < 128)) {
        return u"the window is %1 on a desktop that is %2"_s.arg(page.name(), wanted.name());
    }
    // However small the window is, what happened is read without scrolling.
    const QRectF whole(QPointF(), window->size());
    if (isSeen(u"status"_s) && !whole.contains(placeOf(u"statusPlace"_s))) {
        return u"the status lies outside of the window"_s;
    }
    for (const QString &name : {u"albumGrid"_s, u"imageGrid"_s}) {
        if (!isSeen(name)) {
            continue;
        }
        if (!whole.contains(placeOf(name))) {
            return u"%1 is larger than its window"_s.arg(name);
        }
        // Nobody points at what is still moving.
        const auto *current = find(name)->property("currentItem").value<QQuickItem *>();
        const auto *mark = find(name)->property("highlightItem").value<QQuickItem *>();
        if (current != nullptr && mark != nullptr && current->position() != mark->position()) {
            return u"%1 does not come to rest"_s.arg(name);
        }
    }
    return {};
}

} // namespace quorvane
