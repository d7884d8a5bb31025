#include "App/Tray/EmbeddedTray.h"

#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QPixmap>
#include <QSystemTrayIcon>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// At the start of a session panels come one after the other; an icon that jumps from one tray to another is ugly.
constexpr std::chrono::seconds kGrace{5};

} // namespace

EmbeddedTray::EmbeddedTray(MenuBarIcon icon, std::function<QList<MenuItem>()> read, QObject *parent)
    : QObject(parent)
    , m_image(std::move(icon))
    , m_read(std::move(read))
{
    m_grace.setSingleShot(true);
    m_grace.setInterval(kGrace);
    connect(&m_grace, &QTimer::timeout, this, &EmbeddedTray::make);
}

EmbeddedTray::~EmbeddedTray() = default;

bool EmbeddedTray::isPossible()
{
    return QGuiApplication::platformName() == "xcb"_L1 &&
           qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr;
}

void EmbeddedTray::setWanted(bool isWanted)
{
    if (!isWanted) {
        m_grace.stop();
        m_icon.reset();
        m_menu.reset();
    } else if (!m_icon && !m_grace.isActive() && isPossible()) {
        m_grace.start();
    }
}

void EmbeddedTray::make()
{
    m_menu = std::make_unique<QMenu>();
    connect(m_menu.get(), &QMenu::aboutToShow, this, &EmbeddedTray::fillMenu);
    fillMenu();
    QIcon icon;
    for (const QImage &image : m_image.images) {
        icon.addPixmap(QPixmap::fromImage(image));
    }
    m_icon = std::make_unique<QSystemTrayIcon>(icon);
    m_icon->setContextMenu(m_menu.get());
    m_icon->setToolTip(m_toolTip);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            Q_EMIT activated();
        }
    });
    // It waits by itself for a tray that comes later, or again.
    m_icon->show();
}

void EmbeddedTray::fillMenu()
{
    m_menu->clear();
    const QList<MenuItem> items = m_read();
    for (const MenuItem &item : items) {
        if (item.kind == MenuItem::Kind::Divider) {
            m_menu->addSeparator();
            continue;
        }
        QString text = item.text;
        QAction *action = m_menu->addAction(text.replace('&'_L1, "&&"_L1));
        action->setEnabled(item.isEnabled);
        action->setCheckable(item.kind == MenuItem::Kind::Toggle);
        action->setChecked(item.isChecked);
        connect(action, &QAction::triggered, this, [this, id = item.id] { Q_EMIT triggered(id); });
    }
}

void EmbeddedTray::setToolTip(const QString &text)
{
    m_toolTip = text;
    if (m_icon) {
        m_icon->setToolTip(text);
    }
}

} // namespace quorvane
