#include "Manager/ShortTime.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane {

QString shortTime(const QDateTime &moment, const QLocale &locale)
{
    // What stands in quotes is no field of the time.
    static const QRegularExpression seconds(u"('[^']*')|[^\\w\\s']?s+"_s);
    QString format;
    const QString whole = locale.timeFormat(QLocale::ShortFormat);
    qsizetype end = 0;
    auto matches = seconds.globalMatch(whole);
    while (matches.hasNext()) {
        const auto match = matches.next();
        format += whole.mid(end, match.capturedStart() - end) + match.captured(1);
        end = match.capturedEnd();
    }
    format += whole.mid(end);
    return locale.toString(moment.toLocalTime().time(), format.trimmed());
}

} // namespace quorvane
