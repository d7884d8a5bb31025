#include "Platform/Bus/PortalAnswer.h"

namespace quorvane {

PortalAnswer::PortalAnswer(QDBusConnection bus, const QString &token)
{
    // The path follows from who asks and from the token.
    QString sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    bus.connect(QStringLiteral("org.freedesktop.portal.Desktop"),
                QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token),
                QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"), this,
                SLOT(take(uint, QVariantMap)));
}

void PortalAnswer::take(uint response, const QVariantMap &results)
{
    m_hasCome = true;
    m_response = response;
    m_results = results;
    Q_EMIT came();
}

} // namespace quorvane
