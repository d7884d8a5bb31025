#include "Platform/Secrets/SecretProbe.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMap>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString &secretsName()
{
    static const QString name = u"org.freedesktop.secrets"_s;
    return name;
}

/// Without this look the library would try to start a bus of its own, which takes its time and helps nobody.
bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR") &&
            QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s));
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
    if (!hasSessionBus()) {
        return Storage::None;
    }
    const auto names = [this](const QString &method) {
        const QString bus = u"org.freedesktop.DBus"_s;
        const auto reply = call(bus, u"/org/freedesktop/DBus"_s, bus, method);
        return reply ? reply->value(0).toStringList() : QStringList();
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
    const auto reply = call(secretsName(), u"/org/freedesktop/secrets"_s, u"org.freedesktop.Secret.Service"_s,
                            u"SearchItems"_s, {QVariant::fromValue(attributes)});
    // The reply is two lists of items: the readable ones and the locked ones.
    return reply && !qdbus_cast<QList<QDBusObjectPath>>(reply->value(0)).isEmpty();
}

bool SecretProbe::isInWallet(const QString &service, const QString &account)
{
    const QString path = u"/modules/"_s + m_wallet.section('.'_L1, -1);
    const auto ask = [&](const QString &method, const QVariantList &arguments) {
        const auto reply = call(m_wallet, path, u"org.kde.KWallet"_s, method, arguments);
        return reply ? reply->value(0) : QVariant();
    };
    const QString wallet = ask(u"networkWallet"_s, {}).toString();
    const QVariant missing = ask(u"keyDoesNotExist"_s, {wallet, service, account});
    return missing.isValid() && !missing.toBool() && ask(u"isOpen"_s, {wallet}).toBool();
}

std::optional<QVariantList> SecretProbe::call(const QString &peer, const QString &path, const QString &interface,
                                              const QString &method, const QVariantList &arguments)
{
    using namespace std::chrono_literals;
    if (m_left <= 0ms) {
        return std::nullopt;
    }
    QElapsedTimer timer;
    timer.start();
    QDBusMessage question = QDBusMessage::createMethodCall(peer, path, interface, method);
    question.setArguments(arguments);
    const QDBusMessage reply =
        QDBusConnection::sessionBus().call(question, QDBus::Block, static_cast<int>(m_left.count()));
    m_left -= std::chrono::milliseconds(timer.elapsed());
    return reply.type() == QDBusMessage::ReplyMessage ? std::optional(reply.arguments()) : std::nullopt;
}

} // namespace quorvane
