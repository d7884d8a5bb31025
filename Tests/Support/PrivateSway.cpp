#include "Support/PrivateSway.h"

#include "Support/WaitFor.h"

#include <QFile>

namespace quorvane {

namespace {

const QString kWaylandDisplay = QStringLiteral("wayland-1"); // What sway takes in an empty runtime folder.

QProcessEnvironment plainEnvironment(const QString &folder)
{
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    environment.insert(QStringLiteral("SWAYSOCK"), folder + QStringLiteral("/sway.sock"));
    return environment;
}

} // namespace

QString PrivateSway::missingProgram()
{
    return firstMissing({QStringLiteral("sway"), QStringLiteral("swaybg"), QStringLiteral("swaymsg"),
                         QStringLiteral("grim"), QStringLiteral("setpriv")});
}

PrivateSway::PrivateSway(const QList<QSize> &outputs, const QByteArray &extraConfiguration)
{
    QFile configuration(m_folder.filePath(QStringLiteral("config")));
    if (!configuration.open(QIODevice::WriteOnly)) {
        return;
    }
    configuration.write("xwayland disable\n");
    int left = 0;
    for (qsizetype index = 0; index < outputs.size(); ++index) {
        const QSize size = outputs.at(index);
        configuration.write(QStringLiteral("output HEADLESS-%1 mode %2x%3 position %4 0\n")
                                .arg(index + 1)
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
    environment.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    environment.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    environment.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    environment.insert(QStringLiteral("WLR_HEADLESS_OUTPUTS"), QString::number(outputs.size()));
    m_program = std::make_unique<OwnedProgram>(QStringLiteral("sway"),
                                               QStringList{QStringLiteral("-c"), configuration.fileName()}, environment,
                                               m_folder.path(), OwnedProgram::User::NotRoot);
    const auto answersForAllOutputs = [&] {
        return QFile::exists(m_folder.filePath(kWaylandDisplay)) &&
               outputOf(QStringLiteral("swaymsg"), {QStringLiteral("-rt"), QStringLiteral("get_outputs")},
                        clientEnvironment())
                       .count("\"current_mode\"") == outputs.size();
    };
    m_isReady = waitFor([&] { return !m_program->isRunning() || answersForAllOutputs(); }) && m_program->isRunning();
    if (!m_isReady) {
        qWarning("sway did not start: %s", m_program->errors().constData());
    }
}

PrivateSway::~PrivateSway() = default;

QString PrivateSway::socketPath() const
{
    return m_folder.filePath(QStringLiteral("sway.sock"));
}

QProcessEnvironment PrivateSway::clientEnvironment() const
{
    QProcessEnvironment environment = plainEnvironment(m_folder.path());
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), kWaylandDisplay);
    return environment;
}

QImage PrivateSway::screenshot(const QString &output) const
{
    const QStringList arguments{QStringLiteral("-t"), QStringLiteral("ppm"), QStringLiteral("-o"), output,
                                QStringLiteral("-")};
    return QImage::fromData(outputOf(QStringLiteral("grim"), arguments, clientEnvironment()), "PPM");
}

} // namespace quorvane
