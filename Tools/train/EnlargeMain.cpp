// Enlarges a picture exactly as the program does, tiles included: quorvane-enlarge MODEL.onnx PICTURE THREADS FILE.png.
// Prints the seconds a tile took. The evaluation of a network calls this.

#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QStringList>

#include <cstdio>
#include <exception>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::fprintf(stderr, "usage: quorvane-enlarge MODEL.onnx PICTURE THREADS FILE.png\n");
        return 2;
    }
    const QImage picture = QImage(arguments[2]).convertToFormat(QImage::Format_RGBX8888);
    QFile file(arguments[4]);
    if (picture.isNull() || !file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "quorvane-enlarge: cannot read the picture or write the result\n");
        return 1;
    }
    try {
        quorvane::SuperResolutionModel model(arguments[1], arguments[3].toInt());
        QElapsedTimer timer;
        timer.start();
        const QByteArray png = quorvane::tileUpscaleWithModel(picture, model, {});
        std::printf("%.3f\n", timer.elapsed() / 1000.0 / quorvane::TileGrid(picture.size()).count());
        return file.write(png) == png.size() ? 0 : 1;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "quorvane-enlarge: %s\n", error.what());
        return 1;
    }
}
