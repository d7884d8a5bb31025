#include "App/Tray/Notices.h"

#include <QCoreApplication>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Notices)
};

} // namespace

std::optional<Notice> noticeFor(const EndedOperation &ended)
{
    if (ended.isError) {
        return ended.isTimed ? std::optional(Notice{Tr::tr("No new wallpaper"), ended.status, {}}) : std::nullopt;
    }
    if (ended.file.isEmpty() || ended.isAnyWindowVisible) {
        return std::nullopt;
    }
    return Notice{Tr::tr("New wallpaper"), ended.status, ended.file};
}

} // namespace quorvane
