#include "Platform/System/FileManager.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace quorvane {

namespace {

void openFolderOf(const QString &path)
{
    QProcess::startDetached(QStringLiteral("xdg-open"), {QFileInfo(path).absolutePath()});
}

} // namespace

void FileManager::show(const QString &path)
{
    const QString interface = QStringLiteral("org.freedesktop.FileManager1");
    QDBusMessage call = QDBusMessage::createMethodCall(interface, QStringLiteral("/org/freedesktop/FileManager1"),
                                                       interface, QStringLiteral("ShowItems"));
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
