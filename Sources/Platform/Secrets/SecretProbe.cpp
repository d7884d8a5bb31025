#include "Platform/Secrets/SecretProbe.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QMap>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString &secretsName()
{
    static const QString name = u"org.freedesktop.secrets"_s;
    return name;
}

/// Where QtKeychain goes to the wallet rather than to the Secret Service.
bool isPlasma()
{
    return qgetenv("XDG_CURRENT_DESKTOP") == "KDE" || qEnvironmentVariableIsSet("KDE_FULL_SESSION");
}

} // namespace

SecretProbe::SecretProbe(std::chrono::milliseconds limit)
    : m_left(limit)
{
    using Attributes = QMap<QString, QString>;
    qDBusRegisterMetaType<Attributes>();
}

bool SecretProbe::isReadable(const QString &service, const QString &account)
{
    if (m_storage == Storage::Unknown) {
        m_storage = findStorage();
    }
    switch (m_storage) {
    case Storage::SecretService:
        return isInSecretService(service, account);
    case Storage::Wallet:
        return isInWallet(service, account);
    case Storage::Unknown:
    case Storage::None:
        break;
    }
    return false;
}

SecretProbe::Storage SecretProbe::findStorage()
{
    m_bus.emplace(MessageBus::sessionAddress());
    if (!m_bus->isConnected()) {
        return Storage::None;
    }
    const auto names = [this](const QString &method) {
        const QString bus = u"org.freedesktop.DBus"_s;
        return ask(bus, u"/org/freedesktop/DBus"_s, bus, method).toStringList();
    };
    const QStringList owned = names(u"ListNames"_s);
    if (isPlasma()) {
        // A wallet daemon that does not run holds no open wallet, so it need not be started to find out.
        for (const QString &wallet : {u"org.kde.kwalletd6"_s, u"org.kde.kwalletd5"_s}) {
            if (owned.contains(wallet)) {
                m_wallet = wallet;
                return Storage::Wallet;
            }
        }
        return Storage::None;
    }
    if (owned.contains(secretsName()) || names(u"ListActivatableNames"_s).contains(secretsName())) {
        return Storage::SecretService;
    }
    return Storage::None;
}

bool SecretProbe::isInSecretService(const QString &service, const QString &account)
{
    const QMap<QString, QString> attributes{
        {u"xdg:schema"_s, u"org.qt.keychain"_s}, {u"server"_s, service}, {u"user"_s, account}};
    // The reply is two lists of items: the readable ones and the locked ones.
    const QVariant readable = ask(secretsName(), u"/org/freedesktop/secrets"_s, u"org.freedesktop.Secret.Service"_s,
                                  u"SearchItems"_s, {QVariant::fromValue(attributes)});
    return readable.isValid() && !qdbus_cast<QList<QDBusObjectPath>>(readable).isEmpty();
}

bool SecretProbe::isInWallet(const QString &service, const QString &account)
{
    const QString path = u"/modules/"_s + m_wallet.section('.'_L1, -1);
    const auto askWallet = [&](const QString &method, const QVariantList &arguments) {
        return ask(m_wallet, path, u"org.kde.KWallet"_s, method, arguments);
    };
    const QString wallet = askWallet(u"networkWallet"_s, {}).toString();
    const QVariant missing = askWallet(u"keyDoesNotExist"_s, {wallet, service, account});
    return missing.isValid() && !missing.toBool() && askWallet(u"isOpen"_s, {wallet}).toBool();
}

QVariant SecretProbe::ask(const QString &peer, const QString &path, const QString &interface, const QString &method,
                          const QVariantList &arguments)
{
    using namespace std::chrono_literals;
    if (m_left <= 0ms) {
        return {};
    }
    QElapsedTimer timer;
    timer.start();
    const MessageBus bus = m_bus->until(QDeadlineTimer(m_left));
    const Result<QVariantList> reply = bus.callOrStart(peer, path, interface, method, arguments);
    m_left -= std::chrono::milliseconds(timer.elapsed());
    return reply ? reply->value(0) : QVariant();
}

} // namespace quorvane
