#include "KeyringPeerFixture.h"

#include <QDBusObjectPath>

using namespace Qt::StringLiterals;

// Storages that no daemon at hand can play: one that stops answering in the middle, and Plasma's wallet.

namespace quorvane {

TEST_F(KeyringPeer, aStorageThatFallsSilentInTheMiddleDelaysALittleAndMayAnswerLater)
{
    Peer service(m_session.connection(), u"org.freedesktop.secrets"_s, u"/org/freedesktop/secrets"_s,
                 [](const QString &method, const QVariantList &) -> std::optional<QVariantList> {
                     if (method != u"SearchItems"_s) {
                         return std::nullopt;
                     }
                     const QList readable{QDBusObjectPath(u"/org/freedesktop/secrets/collection/login/1"_s)};
                     return QVariantList{QVariant::fromValue(readable), QVariant::fromValue(QList<QDBusObjectPath>())};
                 });
    ASSERT_TRUE(service.isThere());
    const auto milliseconds = m_session.beginMigration();
    ASSERT_TRUE(milliseconds);
    EXPECT_LT(*milliseconds, 5000);
    EXPECT_TRUE(m_session.keyFile().isNull());
    ASSERT_GT(service.calls.size(), 1) << "QtKeychain did not come as far as asking";

    service.refuseAll();
    EXPECT_TRUE(m_session.endMigration());
    EXPECT_TRUE(m_session.keyFile().isNull());
}

} // namespace quorvane
