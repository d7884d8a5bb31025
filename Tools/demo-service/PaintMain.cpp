// Paints one picture into a file: quorvane-demo-paint PROMPT WIDTHxHEIGHT FILE.

#include "demo-service/Painter/Painter.h"
#include "demo-service/PictureEncoding.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QStringList sides = arguments.value(2).split(u'x');
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    QFile file(arguments.value(3));
    if (arguments.size() != 4 || size.isEmpty() || !file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "usage: quorvane-demo-paint PROMPT WIDTHxHEIGHT FILE.png\n");
        return 1;
    }
    const QByteArray bytes = quorvane::encodePicture(quorvane::paintPicture(arguments[1], size), "png");
    return file.write(bytes) == bytes.size() ? 0 : 1;
}
