#include "Platform/Bus/PortalAnswer.h"

using namespace Qt::StringLiterals;

namespace quorvane {

PortalAnswer::PortalAnswer(QDBusConnection bus, const QString &token)
{
    // The path follows from who asks and from the token.
    QString sender = bus.baseService().mid(1);
    sender.replace('.'_L1, '_'_L1);
    bus.connect(u"org.freedesktop.portal.Desktop"_s,
                u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(sender, token),
                u"org.freedesktop.portal.Request"_s, u"Response"_s, this, SLOT(take(uint, QVariantMap)));
}

void PortalAnswer::take(uint response, const QVariantMap &results)
{
    m_hasCome = true;
    m_response = response;
    m_results = results;
    Q_EMIT came();
}

} // namespace quorvane
