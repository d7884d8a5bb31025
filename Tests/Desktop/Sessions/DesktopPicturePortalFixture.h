#pragma once

#include "Platform/Desktops/DesktopPicturePortal.h"

#include "BigDesktops.h"

#include "Platform/Bus/MessageBus.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSession.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"

#include <QDBusMetaType>
#include <QDBusVariant>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

using Permissions = QMap<QString, QStringList>;
constexpr QSize kSource(1200, 1000);
constexpr std::chrono::seconds kStartLimit{120};
constexpr QSize kScreen(1280, 720);
/// Presses the button of the dialog that asks; throws while there is none.
constexpr char kAllow[] = "Main.layoutManager.modalDialogGroup.get_children()"
                          ".find(each => each._sendResponse && each.state == 0)._sendResponse(0)";

/// Throws while there is such a dialog, and says no to it.
constexpr char kNoQuestion[] =
    "(() => {"
    " const open = Main.layoutManager.modalDialogGroup.get_children().filter(each => each._sendResponse);"
    " open.filter(each => each.state == 0).forEach(each => each._sendResponse(1));"
    " if (open.length > 0) throw new Error('asking');"
    "})()";

inline const QString kLibexec = u"/usr/libexec/"_s;
inline const QString kShell = u"org.gnome.Shell"_s;
inline const QString kPermissions = u"org.freedesktop.impl.portal.PermissionStore"_s;

[[nodiscard]] QString missingPart();

class DesktopPicturePortalTest : public testing::Test
{
  protected:
    void SetUp() override;

    void set(const char *schema, const char *key, const char *value);

    void startShell();

    void startPortal();

    OwnedProgram &startService(const char *program, const QString &name);

    [[nodiscard]] MessageBus within(int milliseconds) const { return m_bus->until(QDeadlineTimer(milliseconds)); }

    [[nodiscard]] bool waitForName(const QString &name);

    [[nodiscard]] bool shellDid(const char *script);

    /// What the desktop remembers of the user's answer.
    void permit(const QString &answer);

    [[nodiscard]] QImage screenshot();

    [[nodiscard]] QString waitForPicture(int mark);

    [[nodiscard]] QString save(const QString &name, int mark) const;

    [[nodiscard]] std::unique_ptr<DesktopPicturePortal>
    makeDesktop(std::chrono::milliseconds limit = kDesktopLimit) const;

    PrivateHome m_home;
    SessionDisplay m_display;
    std::unique_ptr<PrivateSession> m_session;
    std::unique_ptr<MessageBus> m_bus;
    OwnedProgram *m_portal = nullptr;
};

} // namespace quorvane
