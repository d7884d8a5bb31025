#include "Support/PluggableXServer.h"

#include "Support/Files.h"
#include "Support/WaitFor.h"

namespace quorvane {

namespace {

const QString kServer = QStringLiteral("/usr/lib/xorg/Xorg");
const QString kDriver = QStringLiteral("/usr/lib/xorg/modules/drivers/dummy_drv.so");

constexpr char kConfiguration[] = R"(
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
        Virtual 3840 1080
        Modes "1280x720" "800x600"
    EndSubSection
EndSection
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "BlankTime" "0"
    Option "DPMS" "false"
EndSection
)";

} // namespace

QString PluggableXServer::missingProgram()
{
    for (const QString &file : {kServer, kDriver}) {
        if (!QFile::exists(file)) {
            return file;
        }
    }
    return firstMissing({QStringLiteral("xrandr"), QStringLiteral("import")});
}

PluggableXServer::PluggableXServer(int screens)
{
    const QString configuration = m_folder.filePath(QStringLiteral("xorg.conf"));
    if (!putFile(configuration, kConfiguration)) {
        return;
    }
    // Descriptor 1 is a pipe, which the server writes its number to. The module path must be told: the server does not
    // look for drivers where it was started by an ordinary user.
    m_program = std::make_unique<OwnedProgram>(
        kServer,
        QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-config"), configuration,
                    QStringLiteral("-configdir"), m_folder.filePath(QStringLiteral("none")), QStringLiteral("-logfile"),
                    m_folder.filePath(QStringLiteral("log")), QStringLiteral("-noreset"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp"), QStringLiteral("-novtswitch"), QStringLiteral("-sharevts")},
        QProcessEnvironment::systemEnvironment(), m_folder.path());
    const QByteArray number = m_program->readLine();
    if (number.isEmpty()) {
        qWarning("Xorg did not start: %s", m_program->errors().constData());
        return;
    }
    m_display = ":" + number;
    m_isReady = xrandr(
        {QStringLiteral("--output"), QStringLiteral("DUMMY0"), QStringLiteral("--mode"), QStringLiteral("1280x720")});
    while (m_isReady && m_screens < screens) {
        m_isReady = plugIn();
    }
}

bool PluggableXServer::plugIn()
{
    const QString output = QStringLiteral("DUMMY%1").arg(m_screens);
    const QString before = QStringLiteral("DUMMY%1").arg(m_screens - 1);
    ++m_screens;
    // The last call makes the server look again; without it the output still counts as disconnected.
    return xrandr({QStringLiteral("--addmode"), output, QStringLiteral("800x600")}) &&
           xrandr({QStringLiteral("--output"), output, QStringLiteral("--mode"), QStringLiteral("800x600"),
                   QStringLiteral("--right-of"), before}) &&
           xrandr({});
}

QRect PluggableXServer::area(int screen)
{
    return screen == 0 ? QRect(0, 0, 1280, 720) : QRect(1280 + (screen - 1) * 800, 0, 800, 600);
}

QImage PluggableXServer::screenshot() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(m_display));
    const QStringList arguments{QStringLiteral("-window"), QStringLiteral("root"), QStringLiteral("-depth"),
                                QStringLiteral("8"), QStringLiteral("ppm:-")};
    return QImage::fromData(outputOf(QStringLiteral("import"), arguments, environment), "PPM");
}

bool PluggableXServer::xrandr(const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(m_display));
    return !outputOf(QStringLiteral("xrandr"), arguments, environment).isNull();
}

} // namespace quorvane
