#include "Manager/MenuItems.h"

#include "Manager/ShortTime.h"

#include <QCoreApplication>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(MenuBar)
};

MenuItem divider(MenuItem::Id id)
{
    return {id, MenuItem::Kind::Divider, {}};
}

} // namespace

QString stateLine(const MenuState &state, const QLocale &locale)
{
    if (state.isLoading) {
        return Tr::tr("Generating...");
    }
    if (state.nextFireDate.isValid()) {
        return Tr::tr("Next: %1").arg(shortTime(state.nextFireDate, locale));
    }
    return Tr::tr("Idle");
}

QList<MenuItem> menuItems(const MenuState &state, const QLocale &locale)
{
    using Kind = MenuItem::Kind;
    const bool canGenerate = state.hasPrompt && !state.isLoading && state.hasKeys;
    return {
        {MenuItem::StateLine, Kind::Text, stateLine(state, locale), false},
        divider(MenuItem::AboveActions),
        {MenuItem::GenerateNow, Kind::Button, Tr::tr("Generate Now"), canGenerate},
        {MenuItem::AutoGenerate, Kind::Toggle, Tr::tr("Auto-Generate"), true, state.autoEnabled},
        divider(MenuItem::AboveWindows),
        {MenuItem::OpenWindow, Kind::Button, Tr::tr("Open Window")},
        {MenuItem::Settings, Kind::Button, Tr::tr("Settings...")},
        divider(MenuItem::AboveQuit),
        {MenuItem::Quit, Kind::Button, Tr::tr("Quit")},
    };
}

} // namespace quorvane
