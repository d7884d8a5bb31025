#include "Desktop/System/SystemAppearanceFixture.h"

#include "Platform/System/FileManager.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusVirtualObject>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A file manager that keeps what it is asked to show.
class Files : public QDBusVirtualObject
{
  public:
    explicit Files(QDBusConnection bus)
    {
        bus.registerVirtualObject(u"/org/freedesktop/FileManager1"_s, this);
        EXPECT_TRUE(bus.registerService(u"org.freedesktop.FileManager1"_s));
    }
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        asked = message;
        return connection.send(message.createReply());
    }
    QDBusMessage asked;
};

} // namespace

/// What is opened instead of a picture in the file manager: the address that the opener gets.
QByteArray openedInstead(const QString &folder)
{
    EXPECT_TRUE(QDir().mkpath(folder + u"/bin"_s));
    const QString opener = folder + u"/bin/xdg-open"_s;
    EXPECT_TRUE(
        putFile(opener, "#!/bin/sh\nprintf %s \"$1\" > \"$HOME/part\" && mv \"$HOME/part\" \"$HOME/opened\"\n"));
    EXPECT_TRUE(QFile::setPermissions(opener, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", (folder + u"/bin:"_s).toLocal8Bit() + before);
    FileManager manager;
    manager.show(folder + u"/Pictures/one.png"_s);
    const QString opened = folder + u"/opened"_s;
    EXPECT_TRUE(waitFor([&] { return QFile::exists(opened); }));
    qputenv("PATH", before);
    return contentOf(opened);
}

TEST_F(SystemAppearanceTest, aFileManagerIsAskedToShowTheFile)
{
    const Files files(session.connection());
    FileManager manager;
    manager.show(u"/tmp/a lake #1.png"_s);
    ASSERT_TRUE(waitFor([&] { return files.asked.member() == "ShowItems"_L1; }));
    EXPECT_EQ(files.asked.arguments().at(0).toStringList(), QStringList{u"file:///tmp/a%20lake%20%231.png"_s});
    EXPECT_EQ(files.asked.signature(), u"ass"_s);
}

TEST_F(SystemAppearanceTest, withoutAFileManagerOnTheBusTheFolderIsOpened)
{
    const QString folder = session.home().path();
    EXPECT_EQ(openedInstead(folder), (folder + u"/Pictures"_s).toLocal8Bit());
}

TEST_F(SystemAppearanceTest, withoutABusTheFolderIsOpened)
{
    const QString folder = session.home().path();
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    EXPECT_EQ(openedInstead(folder), (folder + u"/Pictures"_s).toLocal8Bit());
}

} // namespace quorvane
