// A program of the session that sets pictures and stays, as the application does, without a window. Each line of its
// input is the address of a picture; for each it answers with one line of JSON.

#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

QByteArray answerTo(const QString &path, quorvane::DesktopPicture &desktop)
{
    const QList<quorvane::Screen> screens = desktop.screens();
    QJsonArray names;
    for (const quorvane::Screen &screen : screens) {
        names.append(u"%1 %2x%3"_s.arg(screen.name).arg(screen.pixels.width()).arg(screen.pixels.height()));
    }
    const quorvane::Result<> shown = desktop.setPicture(path, screens);
    const QJsonObject answer{{u"desktop"_s, desktop.name()},
                             {u"reason"_s, desktop.reason()},
                             {u"screens"_s, names},
                             {u"failure"_s, shown ? QJsonValue() : QJsonValue(shown.failure().words)}};
    return QJsonDocument(answer).toJson(QJsonDocument::Compact);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto desktop = quorvane::makeDesktopPicture();
    for (std::string line; std::getline(std::cin, line);) {
        const QString path = QUrl(QString::fromStdString(line)).toLocalFile();
        std::cout << answerTo(path, *desktop).constData() << std::endl;
    }
}
