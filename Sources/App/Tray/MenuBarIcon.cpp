#include "App/Tray/MenuBarIcon.h"

#include <QPainter>
#include <QStandardPaths>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kPoints = 22;
constexpr QColor kGlyph(0xf2, 0xf2, 0xf2);
constexpr QColor kRim(0, 0, 0, 0xa0);

QImage tinted(const QImage &shape, const QColor &color)
{
    QImage image = shape;
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

QImage drawn(QSvgRenderer &svg, int scale)
{
    QImage shape(kPoints * scale, kPoints * scale, QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    {
        QPainter painter(&shape);
        svg.render(&painter);
    }
    QImage image(shape.size(), shape.format());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QImage rim = tinted(shape, kRim);
    for (const QPoint offset : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        painter.drawImage(offset, rim);
    }
    painter.drawImage(0, 0, tinted(shape, kGlyph));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

MenuBarIcon menuBarIcon(const QString &folder)
{
    QSvgRenderer svg;
    if (!svg.load(folder + u"/MenuBarIcon.svg"_s) && !svg.load(folder + u"/sparkles.svg"_s)) {
        qFatal("The menu bar icon is missing");
    }
    const QString name = u"app.quorvane.Quorvane-symbolic"_s;
    const QString installed =
        QStandardPaths::locate(QStandardPaths::GenericDataLocation, u"icons/hicolor/symbolic/apps/%1.svg"_s.arg(name));
    return {installed.isEmpty() ? QString() : name, {drawn(svg, 1), drawn(svg, 2)}};
}

} // namespace quorvane
