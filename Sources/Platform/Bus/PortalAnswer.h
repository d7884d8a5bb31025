#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace quorvane {

/// Receives the answer to a request to the desktop portal: the signal of the request's own object. To be made before
/// the request is sent, because the signal can come before the call returns.
class PortalAnswer : public QObject
{
    Q_OBJECT

  public:
    /// token is what the request is given as "handle_token".
    PortalAnswer(QDBusConnection bus, const QString &token);

    [[nodiscard]] bool hasCome() const { return m_hasCome; }

    /// 0 for what was done, 1 for what the user refused, 2 for another end.
    [[nodiscard]] uint response() const { return m_response; }
    [[nodiscard]] QVariantMap results() const { return m_results; }

  Q_SIGNALS:
    void came();

  private Q_SLOTS:
    void take(uint response, const QVariantMap &results);

  private:
    bool m_hasCome = false;
    uint m_response = 0;
    QVariantMap m_results;
};

} // namespace quorvane
