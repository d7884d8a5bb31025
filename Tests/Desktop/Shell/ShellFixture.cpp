#include "ShellFixture.h"

#include "App/Control/ControlCalls.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QImage>

#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kWatcher = u"org.kde.StatusNotifierWatcher"_s;
const QString kWatcherPath = u"/StatusNotifierWatcher"_s;
constexpr int kLimitMilliseconds = 20'000;

} // namespace

Application::Application(const QProcessEnvironment &environment, const QStringList &arguments, const QString &program)
{
    m_process.setProcessEnvironment(environment);
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.start(program, arguments);
    m_process.waitForStarted();
}

Application::~Application()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

int Application::count(const QByteArray &text)
{
    m_errors += m_process.readAllStandardError();
    return static_cast<int>(m_errors.count(text));
}

bool Application::says(const QByteArray &text, int times)
{
    const bool said = waitFor([&] { return count(text) >= times; });
    EXPECT_TRUE(said) << m_errors.constData();
    return said;
}

bool Application::ends()
{
    const bool ended = waitFor([this] { return m_process.state() == QProcess::NotRunning; });
    m_errors += m_process.readAllStandardError();
    return ended;
}

int Application::waitForEnd()
{
    return ends() && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void Application::signal(int number)
{
    ASSERT_TRUE(isRunning());
    ::kill(static_cast<pid_t>(m_process.processId()), number);
}

Panel::Panel(const QDBusConnection &bus)
    : m_bus(bus)
{
    m_bus.registerVirtualObject(kWatcherPath, this);
    EXPECT_TRUE(m_bus.registerService(kWatcher));
}

Panel::~Panel()
{
    m_bus.unregisterService(kWatcher);
    m_bus.unregisterObject(kWatcherPath);
}

bool Panel::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.member() == "RegisterStatusNotifierItem"_L1) {
        items.append(message.arguments().value(0).toString());
        return connection.send(message.createReply());
    }
    return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(true))));
}

Daemon::Daemon(QDBusConnection bus)
{
    bus.registerVirtualObject(u"/org/freedesktop/Notifications"_s, this);
    EXPECT_TRUE(bus.registerService(u"org.freedesktop.Notifications"_s));
}

bool Daemon::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const bool isQuestion = message.member() == "GetCapabilities"_L1;
    if (!isQuestion) {
        shown.append(message.arguments());
    }
    message.setDelayedReply(!answers);
    const QVariant answer = isQuestion ? QVariant(capabilities) : QVariant(kNumber);
    return !answers || connection.send(message.createReply(answer));
}

void ShellTest::SetUp()
{
    const QString missing = whyNoBus();
    if (!missing.isEmpty()) {
        GTEST_SKIP() << missing.toStdString();
    }
    qDBusRegisterMetaType<DBusMenuLayout>();
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        return image;
    });
    QProcessEnvironment &environment = session.environment();
    for (const char *name : {"QUORVANE_GEMINI_BASE_URL", "QUORVANE_XAI_BASE_URL", "QUORVANE_OPENAI_BASE_URL"}) {
        environment.insert(QLatin1String(name), service.baseAddress().toString());
    }
    environment.remove(u"SWAYSOCK"_s);
    environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, u"/bin/true"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"TEST_WINDOWS"_s, QStringLiteral(TEST_WINDOWS));
    ASSERT_TRUE(session.startBus());
}

std::unique_ptr<Application> ShellTest::start(const QStringList &arguments)
{
    return std::make_unique<Application>(session.environment(), arguments);
}

std::unique_ptr<Application> ShellTest::startAndWait(const QStringList &arguments)
{
    auto application = start(arguments);
    EXPECT_TRUE(isThere());
    return application;
}

bool ShellTest::isThere() const
{
    // The menu comes last.
    const auto answers = [this] {
        return call(DBusMenu::path(), u"com.canonical.dbusmenu"_s, u"AboutToShow"_s, {0}).type() ==
               QDBusMessage::ReplyMessage;
    };
    return waitFor([this] { return isOnBus(); }) && waitFor(answers);
}

CommandRun ShellTest::command(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.setProcessEnvironment(session.environment());
    process.start(QStringLiteral(QUORVANE_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = waitFor([&process] { return process.state() == QProcess::NotRunning; }) &&
                       process.exitStatus() == QProcess::NormalExit;
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

bool ShellTest::isOnBus() const
{
    return session.connection().interface()->isServiceRegistered(Control::busName()).value();
}

QDBusMessage ShellTest::call(const QString &path, const QString &interface, const QString &method,
                             const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(Control::busName(), path, interface, method);
    message.setArguments(arguments);
    // Not a blocking call: the application may ask objects of this process at the same time.
    const QDBusPendingCall pending = session.connection().asyncCall(message, kLimitMilliseconds);
    EXPECT_TRUE(waitFor([&pending] { return pending.isFinished(); }));
    return pending.reply();
}

QVariant ShellTest::property(const QString &name) const
{
    const QDBusMessage reply =
        call(Control::objectPath(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {Control::interfaceName(), name});
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QList<DBusMenuLayout> ShellTest::menu() const
{
    const QDBusMessage reply =
        call(DBusMenu::path(), u"com.canonical.dbusmenu"_s, u"GetLayout"_s, {0, -1, QStringList()});
    EXPECT_EQ(reply.signature(), u"u(ia{sv}av)"_s) << reply.errorMessage().toStdString();
    const auto root = qdbus_cast<DBusMenuLayout>(reply.arguments().value(1));
    QList<DBusMenuLayout> items;
    for (const QVariant &child : root.children) {
        const bool isWrapped = child.userType() == qMetaTypeId<QDBusVariant>();
        items.append(qdbus_cast<DBusMenuLayout>(isWrapped ? child.value<QDBusVariant>().variant() : child));
    }
    return items;
}

QVariant ShellTest::menuProperty(MenuItem::Id id, const QString &name) const
{
    for (const DBusMenuLayout &each : menu()) {
        if (each.id == id) {
            return each.properties.value(name);
        }
    }
    return {};
}

void ShellTest::click(MenuItem::Id id) const
{
    const QVariant nothing = QVariant::fromValue(QDBusVariant(QString()));
    (void)call(DBusMenu::path(), u"com.canonical.dbusmenu"_s, u"Event"_s,
               {static_cast<int>(id), u"clicked"_s, nothing, 0U});
}

} // namespace quorvane
