#include "Support/Desktop/PrivateSway.h"

#include "Support/WaitFor.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kWaylandDisplay = u"wayland-1"_s; // What sway takes in an empty runtime folder.

QProcessEnvironment plainEnvironment(const QString &folder)
{
    QProcessEnvironment environment;
    environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"HOME"_s, folder);
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder);
    environment.insert(u"SWAYSOCK"_s, folder + u"/sway.sock"_s);
    return environment;
}

} // namespace

QString PrivateSway::missingProgram()
{
    return firstMissing({u"sway"_s, u"swaybg"_s, u"swaymsg"_s, u"grim"_s, u"setpriv"_s});
}

PrivateSway::PrivateSway(const QList<QSize> &outputs, const QByteArray &extraConfiguration)
{
    QFile configuration(m_folder.filePath(u"config"_s));
    if (!configuration.open(QIODevice::WriteOnly)) {
        return;
    }
    configuration.write("xwayland disable\n");
    int left = 0;
    for (qsizetype index = 0; index < outputs.size(); ++index) {
        const QSize size = outputs.at(index);
        configuration.write(u"output HEADLESS-%1 mode %2x%3 position %4 0\n"_s.arg(index + 1)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(left)
                                .toUtf8());
        left += size.width();
    }
    configuration.write(extraConfiguration);
    configuration.close();
    configuration.setPermissions(QFile::ReadOwner | QFile::ReadOther);
    OwnedProgram::handOver(m_folder.path(), OwnedProgram::User::NotRoot);

    QProcessEnvironment environment = plainEnvironment(m_folder.path());
    environment.insert(u"WLR_BACKENDS"_s, u"headless"_s);
    environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    environment.insert(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
    environment.insert(u"WLR_HEADLESS_OUTPUTS"_s, QString::number(outputs.size()));
    m_program = std::make_unique<OwnedProgram>(u"sway"_s, QStringList{u"-c"_s, configuration.fileName()}, environment,
                                               m_folder.path(), OwnedProgram::User::NotRoot);
    const auto answersForAllOutputs = [&] {
        return QFile::exists(m_folder.filePath(kWaylandDisplay)) &&
               outputOf(u"swaymsg"_s, {u"-rt"_s, u"get_outputs"_s}, clientEnvironment()).count("\"current_mode\"") ==
                   outputs.size();
    };
    m_isReady = waitFor([&] { return !m_program->isRunning() || answersForAllOutputs(); }) && m_program->isRunning();
    if (!m_isReady) {
        qWarning("sway did not start: %s", m_program->errors().constData());
    }
}

PrivateSway::~PrivateSway() = default;

QString PrivateSway::socketPath() const
{
    return m_folder.filePath(u"sway.sock"_s);
}

QProcessEnvironment PrivateSway::clientEnvironment() const
{
    QProcessEnvironment environment = plainEnvironment(m_folder.path());
    environment.insert(u"WAYLAND_DISPLAY"_s, kWaylandDisplay);
    return environment;
}

QImage PrivateSway::screenshot(const QString &output) const
{
    const QStringList arguments{u"-t"_s, u"ppm"_s, u"-o"_s, output, u"-"_s};
    return QImage::fromData(outputOf(u"grim"_s, arguments, clientEnvironment()), "PPM");
}

} // namespace quorvane
