#include "Views/Actions/PictureActions.h"

#include "Views/Actions/PictureMimeData.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QUrl>

namespace quorvane {

void PictureActions::showInFiles(const QString &path)
{
    if (!m_files) {
        m_files = std::make_unique<FileManager>();
    }
    m_files->show(path);
}

void PictureActions::copy(const QString &path)
{
    QGuiApplication::clipboard()->setMimeData(new PictureMimeData(path));
}

QVariantMap PictureActions::draggedData(const QString &path)
{
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded() + "\r\n";
    return {{QStringLiteral("text/uri-list"), QString::fromLatin1(address)}};
}

} // namespace quorvane
