#include "Platform/Desktops/DesktopPictureSway.h"

#include "Platform/Desktops/Protocols/SwaySocket.h"
#include "Platform/Pictures/HandedPicture.h"
#include "Platform/Pictures/PictureCopy.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureSway)
};

bool contains(const QList<Screen> &screens, const QString &name)
{
    return std::any_of(screens.begin(), screens.end(), [&](const Screen &screen) { return screen.name == name; });
}

Result<> showOnScreen(SwaySocket &socket, const QString &name, const QList<Screen> &present, const QString &path)
{
    const std::optional<QByteArray> command = DesktopPictureSway::commandFor(name, path);
    if (!command || !contains(present, name)) {
        return Failure{Tr::tr("sway has no screen \"%1\"").arg(name)}; // sway itself would answer "success".
    }
    const Result<QByteArray> result = socket.ask(SwaySocket::Message::RunCommand, *command);
    return result ? DesktopPictureSway::outcomeOf(*result) : result.failure();
}

} // namespace

DesktopPictureSway::DesktopPictureSway(QString socketPath, QString reason, std::chrono::milliseconds limit)
    : m_socketPath(std::move(socketPath))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

QList<Screen> DesktopPictureSway::screens()
{
    SwaySocket socket(m_socketPath, QDeadlineTimer(m_limit));
    const Result<QByteArray> answer = socket.ask(SwaySocket::Message::GetOutputs);
    return answer ? screensOf(*answer) : QList<Screen>();
}

Result<> DesktopPictureSway::setPicture(const QString &path, const QList<Screen> &screens)
{
    // Decoding and copying come first, so that sway's time is not spent on them.
    const Result<HandedPicture> handed = handedPicture(path, isPlainPath);
    if (!handed) {
        return handed.failure();
    }
    SwaySocket socket(m_socketPath, QDeadlineTimer(m_limit));
    const Result<QByteArray> answer = socket.ask(SwaySocket::Message::GetOutputs);
    if (!answer) {
        if (handed->isCopy) {
            QFile::remove(handed->path);
        }
        return answer.failure();
    }
    const QList<Screen> present = screensOf(*answer);
    for (qsizetype index = 0; index < screens.size(); ++index) {
        if (Result<> shown = showOnScreen(socket, screens.at(index).name, present, handed->path); !shown) {
            // Screens before this one show the copy, and so may this one when only the answer was lost.
            if (handed->isCopy && index == 0 && socket.isConnected()) {
                QFile::remove(handed->path);
            }
            return shown;
        }
    }
    // sway reads the pictures of all screens anew at every change, so a copy goes only once no screen has it.
    const bool isEverywhere = std::all_of(present.begin(), present.end(),
                                          [&](const Screen &screen) { return contains(screens, screen.name); });
    if (isEverywhere) {
        PictureCopy::removeAllBut(handed->path);
    }
    return kDone;
}

QList<Screen> DesktopPictureSway::screensOf(const QByteArray &outputsJson)
{
    QList<Screen> screens;
    const QJsonArray outputs = QJsonDocument::fromJson(outputsJson).array();
    for (const QJsonValue value : outputs) {
        const QJsonObject output = value.toObject();
        const QJsonObject mode = output.value("current_mode"_L1).toObject();
        QSize pixels(mode.value("width"_L1).toInt(), mode.value("height"_L1).toInt());
        const QString transform = output.value("transform"_L1).toString();
        if (transform.endsWith("90"_L1) || transform.endsWith("270"_L1)) {
            pixels.transpose();
        }
        const QString name = output.value("name"_L1).toString();
        if (output.value("active"_L1).toBool() && !name.isEmpty() && !pixels.isEmpty()) {
            screens.append({name, pixels});
        }
    }
    return screens;
}

Result<> DesktopPictureSway::outcomeOf(const QByteArray &resultsJson)
{
    const QJsonDocument document = QJsonDocument::fromJson(resultsJson);
    const QJsonArray results = document.array();
    if (results.isEmpty()) {
        return Failure{Tr::tr("sway's answer cannot be understood")};
    }
    for (const QJsonValue result : results) {
        if (!result.toObject().value("success"_L1).toBool()) {
            const QString words = result.toObject().value("error"_L1).toString();
            return Failure{words.isEmpty() ? Tr::tr("sway refused the picture") : words};
        }
    }
    return kDone;
}

bool DesktopPictureSway::isPlainPath(const QString &path)
{
    return path.startsWith('/'_L1) && std::all_of(path.begin(), path.end(), [](QChar letter) {
               const char16_t code = letter.unicode();
               return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
                      (code >= u'0' && code <= u'9') || QStringView(u"/_.-").contains(letter);
           });
}

std::optional<QByteArray> DesktopPictureSway::commandFor(const QString &screenName, const QString &path)
{
    // Inside double quotes sway knows only these; "*" means every screen and "-" the focused one.
    const bool isAmbiguous = std::any_of(screenName.begin(), screenName.end(), [](QChar letter) {
        return QStringView(u"\"\\$").contains(letter) || letter.unicode() < u' ' || letter.unicode() == 0x7f;
    });
    static const QStringList special{QString(), u"*"_s, u"-"_s, u"--"_s};
    if (isAmbiguous || special.contains(screenName)) {
        return std::nullopt;
    }
    return u"output \"%1\" bg %2 fill"_s.arg(screenName, path).toUtf8();
}

} // namespace quorvane
