#include "Views/Pictures/SymbolProvider.h"

#include <QColor>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace quorvane {

SymbolProvider::SymbolProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{
}

QImage SymbolProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QString name = id.section('/'_L1, 0, 0);
    const QColor color(id.section('/'_L1, 1));
    QSvgRenderer renderer(u":/qt/qml/Quorvane/Views/Symbols/%1.svg"_s.arg(name));
    if (!renderer.isValid()) {
        return {};
    }
    *size = requestedSize.isEmpty() ? renderer.defaultSize() : requestedSize;
    QImage image(*size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

} // namespace quorvane
