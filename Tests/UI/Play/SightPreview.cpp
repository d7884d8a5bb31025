#include "UI/Play/Sight.h"

#include "Storage/SideFile.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QString Sight::previewDiffers() const
{
    if (isSeen(u"preview"_s) != isPreviewOpen()) {
        return u"the preview is seen and not open, or open and not seen"_s;
    }
    if (!isPreviewOpen()) {
        return {};
    }
    const QString source = find(u"previewPicture"_s)->property("source").toString();
    for (const QString &name : picturesOnDisk()) {
        // The address ends with the path, encoded twice.
        if (source.endsWith("%252F"_L1 + name)) {
            return buttonsOfPreviewDiffer(home.library() + '/'_L1 + name);
        }
    }
    // Nothing can be done with what is gone, and the preview says so. What it was made from may be there still.
    for (const QString &button : {u"setButton"_s, u"favoriteButton"_s, u"upscaleButton"_s, u"fullScreenButton"_s}) {
        if (isSeen(button)) {
            return u"the preview of %1, which is gone, offers %2"_s.arg(source, button);
        }
    }
    return isSeen(u"previewProblem"_s) ? QString() : u"the preview does not say that %1 is gone"_s.arg(source);
}

QString Sight::buttonsOfPreviewDiffer(const QString &url) const
{
    const QString name = imageName(url);
    if (isSeen(u"previewProblem"_s)) {
        return u"the preview says of %1: %2"_s.arg(name, textOf(find(u"previewProblem"_s)));
    }
    const bool isStarred = textOf(find(u"favoriteButton"_s)) == "Unfavorite"_L1;
    if (!isSeen(u"favoriteButton"_s) || isStarred != manager->favorites().contains(name)) {
        return u"the preview's star of %1 is not as the favourites are"_s.arg(name);
    }
    bool isCopy = false;
    bool hasCopy = false;
    const QStringList disk = picturesOnDisk();
    for (const auto &[original, copy] : readTextMap(ImageStore::variantsPath())) {
        isCopy = isCopy || (copy == name && disk.contains(original));
        hasCopy = hasCopy || (original == name && disk.contains(copy));
    }
    if (isSeen(u"originalButton"_s) != isCopy) {
        return u"the preview of %1 %2 an original"_s.arg(name, isCopy ? u"does not offer"_s : u"offers"_s);
    }
    if (isSeen(u"upscaleButton"_s) && (isCopy || hasCopy || !manager->upscalingURL().isEmpty())) {
        return u"the preview offers to enlarge %1, which is not possible"_s.arg(name);
    }
    const QStringList list = imagesOfOpenAlbum().value_or(manager->history());
    const qsizetype place = list.indexOf(url);
    const bool canGoLeft = place > 0;
    const bool canGoRight = place >= 0 && place < list.size() - 1;
    for (const auto &[button, isPossible] : {std::pair{u"leftButton"_s, canGoLeft}, {u"rightButton"_s, canGoRight}}) {
        if (find(button)->isEnabled() != isPossible) {
            return u"at %1, which is %2 of %3, %4 is %5"_s.arg(name)
                .arg(place)
                .arg(list.size())
                .arg(button, enabledness(find(button)->isEnabled()));
        }
    }
    return {};
}

} // namespace quorvane
