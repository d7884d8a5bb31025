#include "Support/Desktop/PrivateXorg.h"

#include "Support/Files.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Not the one in the path, which may be a wrapper that lets only somebody at the console through.
const QString kServer = u"/usr/lib/xorg/Xorg"_s;
const QString kDriver = u"/usr/lib/xorg/modules/drivers/dummy_drv.so"_s;

const QString kFirstMode = u"1280x720"_s;
const QString kOtherMode = u"800x600"_s;

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
    return u"DUMMY%1"_s.arg(index);
}

} // namespace

QString PrivateXorg::missingProgram()
{
    for (const QString &file : {kServer, kDriver}) {
        if (!QFileInfo::exists(file)) {
            return file;
        }
    }
    return firstMissing({u"xrandr"_s, u"setpriv"_s});
}

PrivateXorg::PrivateXorg()
{
    const QString configuration = folder() + u"/xorg.conf"_s;
    if (!putFile(configuration, kConfiguration)) {
        return;
    }
    start(kServer,
          {u"-displayfd"_s, u"1"_s, u"-config"_s, configuration, u"-configdir"_s, folder(), u"-logfile"_s,
           folder() + u"/xorg.log"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s, u"-novtswitch"_s, u"-sharevts"_s,
           u"-ac"_s},
          OwnedProgram::User::NotRoot);
    if (PrivateXServer::isReady()) {
        m_plugged = 1;
        (void)plugIn();
    }
}

QList<QRect> PrivateXorg::areas() const
{
    // " 1: +DUMMY1 800/200x600/150+1280+0  DUMMY1"
    static const QRegularExpression line(uR"((\d+)/\d+x(\d+)/\d+\+(\d+)\+(\d+))"_s);
    const QString monitors =
        QString::fromLatin1(outputOf(u"xrandr"_s, {u"--listactivemonitors"_s}, clientEnvironment()));
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
    QStringList arguments{u"--output"_s, outputName(0), u"--mode"_s, kFirstMode, u"--pos"_s, u"0x0"_s};
    for (int index = 1; index < m_plugged; ++index) {
        arguments += QStringList{u"--output"_s, outputName(index), u"--mode"_s,
                                 kOtherMode,    u"--right-of"_s,   outputName(index - 1)};
    }
    // The second call looks at the outputs, without which a new one still counts as unplugged.
    return runXrandr(arguments) && runXrandr({});
}

bool PrivateXorg::plugIn()
{
    const bool hasMode = runXrandr({u"--addmode"_s, outputName(m_plugged), kOtherMode});
    ++m_plugged;
    return hasMode && layOut();
}

bool PrivateXorg::runXrandr(const QStringList &arguments) const
{
    return !outputOf(u"xrandr"_s, arguments, clientEnvironment()).isNull();
}

} // namespace quorvane
