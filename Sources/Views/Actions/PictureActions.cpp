#include "Views/Actions/PictureActions.h"

#include "Views/Actions/PictureMimeData.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QUrl>

using namespace Qt::StringLiterals;

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
    return {{u"text/uri-list"_s, QString::fromLatin1(address)}};
}

} // namespace quorvane
