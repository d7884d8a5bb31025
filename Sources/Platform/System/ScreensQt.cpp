#include "Platform/System/Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

namespace quorvane {

namespace {

/// While no screen is attached, Qt has a placeholder without a name or without an area.
bool isPlaceholder(const QScreen &screen)
{
    return screen.name().isEmpty() || screen.geometry().isEmpty();
}

/// Keeps no screen: they are only looked at while they signal.
class ScreensQt final : public Screens
{
  public:
    explicit ScreensQt(const QGuiApplication &application)
    {
        m_quiet.setSingleShot(true);
        m_quiet.setInterval(kScreensQuietTime);
        connect(&m_quiet, &QTimer::timeout, this, &Screens::changed);
        const auto restart = [this](const QScreen *screen) {
            if (screen != nullptr && !isPlaceholder(*screen)) {
                m_quiet.start();
            }
        };
        const auto watch = [this, restart](const QScreen *screen) {
            connect(screen, &QScreen::geometryChanged, this, [restart, screen] { restart(screen); });
            connect(screen, &QScreen::logicalDotsPerInchChanged, this, [restart, screen] { restart(screen); });
        };
        for (const QScreen *screen : QGuiApplication::screens()) {
            watch(screen);
        }
        connect(&application, &QGuiApplication::screenAdded, this, [watch, restart](const QScreen *screen) {
            watch(screen);
            restart(screen);
        });
        connect(&application, &QGuiApplication::screenRemoved, this, restart);
        connect(&application, &QGuiApplication::primaryScreenChanged, this, restart);
    }

  private:
    QTimer m_quiet;
};

} // namespace

std::unique_ptr<Screens> makeScreens()
{
    const auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    return application != nullptr ? std::make_unique<ScreensQt>(*application) : nullptr;
}

} // namespace quorvane
