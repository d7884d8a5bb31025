#include "App/Tray/Notices.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Notices)
};

} // namespace

Notice noticeOf(const QStringList &problems)
{
    return {u"Quorvane"_s, problems.join('\n'_L1), {}};
}

std::optional<Notice> noticeFor(const OperationResult &ended, bool isAnyWindowVisible)
{
    const QString text = (QStringList(ended.status) + ended.problems).join('\n'_L1);
    if (ended.isError) {
        return ended.isTimed ? std::optional(Notice{Tr::tr("No new wallpaper"), text, {}}) : std::nullopt;
    }
    const bool isNews = !ended.file.isEmpty() || !ended.problems.isEmpty();
    if (!isNews || isAnyWindowVisible) {
        return std::nullopt;
    }
    if (ended.file.isEmpty()) {
        return noticeOf(ended.problems);
    }
    return Notice{Tr::tr("New wallpaper"), text, ended.file};
}

} // namespace quorvane
