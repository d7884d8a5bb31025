#include "UI/Play/Sight.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QString Sight::sidebarDiffers() const
{
    const QString text = editorText();
    if (text != manager->prompt()) {
        return u"the editor shows \"%1\", the prompt is \"%2\""_s.arg(text, manager->prompt());
    }
    const QStringList missing = manager->missingKeys();
    if (isSeen(u"missingKeys"_s) == missing.isEmpty() ||
        (!missing.isEmpty() && find(u"missingKeys"_s)->property("names").toStringList() != missing)) {
        return u"the missing keys are %1, and are not shown so"_s.arg(missing.join(' '_L1));
    }
    const QQuickItem *button = find(u"generateButton"_s);
    const bool canGenerate = !text.isEmpty() && missing.isEmpty() && !manager->isLoading();
    if (button->isEnabled() != canGenerate) {
        return u"the button is %1 with the editor at \"%2\" and %3 keys missing"_s
            .arg(enabledness(button->isEnabled()), text)
            .arg(missing.size());
    }
    if (textOf(find(u"providerName"_s)) != manager->resolvedProvider().name()) {
        return u"the provider is shown as %1"_s.arg(textOf(find(u"providerName"_s)));
    }
    for (const auto &[toggle, isOn] : {std::pair{u"fourKToggle"_s, manager->fourKEnabled()},
                                       {u"nsfwToggle"_s, manager->nsfwEnabled()},
                                       {u"autoToggle"_s, manager->autoEnabled()}}) {
        if (find(toggle)->property("checked").toBool() != isOn) {
            return u"%1 shows something else than is so"_s.arg(toggle);
        }
    }
    if (isSeen(u"nsfwToggle"_s) != manager->nsfwApplies()) {
        return u"the NSFW switch is shown where it is of no use, or not where it is"_s;
    }
    if (isSeen(u"status"_s) == manager->status().isEmpty() ||
        (isSeen(u"status"_s) && textOf(find(u"status"_s)) != manager->status())) {
        return u"the status is \"%1\" and shown as \"%2\""_s.arg(manager->status(), textOf(find(u"status"_s)));
    }
    return {};
}

} // namespace quorvane
