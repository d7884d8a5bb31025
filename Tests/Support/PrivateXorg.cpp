#include "Support/PrivateXorg.h"

#include "Support/Files.h"

#include <QRegularExpression>

namespace quorvane {

namespace {

/// Not the one in the path, which may be a wrapper that lets only somebody at the console through.
const QString kServer = QStringLiteral("/usr/lib/xorg/Xorg");
const QString kDriver = QStringLiteral("/usr/lib/xorg/modules/drivers/dummy_drv.so");

const QString kFirstMode = QStringLiteral("1280x720");
const QString kOtherMode = QStringLiteral("800x600");

const QByteArray kConfiguration = R"(
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Virtual 3840 2160
        Modes "1280x720" "800x600"
    EndSubSection
EndSection
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "BlankTime" "0"
EndSection
)";

QString outputName(int index)
{
    return QStringLiteral("DUMMY%1").arg(index);
}

} // namespace

QString PrivateXorg::missingProgram()
{
    for (const QString &file : {kServer, kDriver}) {
        if (!QFileInfo::exists(file)) {
            return file;
        }
    }
    return firstMissing({QStringLiteral("xrandr"), QStringLiteral("setpriv")});
}

PrivateXorg::PrivateXorg()
{
    const QString configuration = folder() + QStringLiteral("/xorg.conf");
    if (!putFile(configuration, kConfiguration)) {
        return;
    }
    start(kServer,
          {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-config"), configuration,
           QStringLiteral("-configdir"), folder(), QStringLiteral("-logfile"), folder() + QStringLiteral("/xorg.log"),
           QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset"),
           QStringLiteral("-novtswitch"), QStringLiteral("-sharevts"), QStringLiteral("-ac")},
          OwnedProgram::User::NotRoot);
    if (PrivateXServer::isReady()) {
        m_plugged = 1;
        (void)plugIn();
    }
}

QList<QRect> PrivateXorg::areas() const
{
    // " 1: +DUMMY1 800/200x600/150+1280+0  DUMMY1"
    static const QRegularExpression line(QStringLiteral(R"((\d+)/\d+x(\d+)/\d+\+(\d+)\+(\d+))"));
    const QString monitors = QString::fromLatin1(
        outputOf(QStringLiteral("xrandr"), {QStringLiteral("--listactivemonitors")}, clientEnvironment()));
    QList<QRect> result;
    for (auto match = line.globalMatch(monitors); match.hasNext();) {
        const QRegularExpressionMatch area = match.next();
        result.append(QRect(area.captured(3).toInt(), area.captured(4).toInt(), area.captured(1).toInt(),
                            area.captured(2).toInt()));
    }
    return result;
}

bool PrivateXorg::layOut() const
{
    QStringList arguments{QStringLiteral("--output"), outputName(0),        QStringLiteral("--mode"), kFirstMode,
                          QStringLiteral("--pos"),    QStringLiteral("0x0")};
    for (int index = 1; index < m_plugged; ++index) {
        arguments +=
            QStringList{QStringLiteral("--output"),   outputName(index),    QStringLiteral("--mode"), kOtherMode,
                        QStringLiteral("--right-of"), outputName(index - 1)};
    }
    // The second call looks at the outputs, without which a new one still counts as unplugged.
    return runXrandr(arguments) && runXrandr({});
}

bool PrivateXorg::plugIn()
{
    const bool hasMode = runXrandr({QStringLiteral("--addmode"), outputName(m_plugged), kOtherMode});
    ++m_plugged;
    return hasMode && layOut();
}

bool PrivateXorg::runXrandr(const QStringList &arguments) const
{
    return !outputOf(QStringLiteral("xrandr"), arguments, clientEnvironment()).isNull();
}

} // namespace quorvane
