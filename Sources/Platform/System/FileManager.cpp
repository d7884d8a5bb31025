#include "Platform/System/FileManager.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

void openFolderOf(const QString &path)
{
    QProcess::startDetached(u"xdg-open"_s, {QFileInfo(path).absolutePath()});
}

} // namespace

void FileManager::show(const QString &path)
{
    if (!m_bus.isConnected()) {
        openFolderOf(path); // A call would never end.
        return;
    }
    const QString interface = u"org.freedesktop.FileManager1"_s;
    QDBusMessage call =
        QDBusMessage::createMethodCall(interface, u"/org/freedesktop/FileManager1"_s, interface, u"ShowItems"_s);
    const QString address = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    call.setArguments({QStringList{address}, QString()});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, path] {
        if (watcher->isError()) {
            openFolderOf(path);
        }
        watcher->deleteLater();
    });
}

} // namespace quorvane
