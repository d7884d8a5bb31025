// What a user does to the window, with pointer and keyboard.

#include "UI/ViewFixture.h"

#include <QKeyEvent>

namespace quorvane {

bool ViewTest::isReachable(const QString &name) const
{
    return isSeen(name) && QRect(QPoint(), window->size()).contains(middleOf(find(name)));
}

void ViewTest::click(const QString &name)
{
    ASSERT_TRUE(waitFor([&] { return isReachable(name); }, std::chrono::seconds(5))) << name.toStdString();
    const QQuickItem *item = find(name);
    ASSERT_TRUE(item->isEnabled()) << name.toStdString();
    QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(item));
}

QPoint ViewTest::middleOf(const QQuickItem *item)
{
    // A button that has just appeared is laid out with the next frame, and lies under another one until then.
    for (QQuickItem *around = item->parentItem(); around != nullptr; around = around->parentItem()) {
        around->ensurePolished();
    }
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

void ViewTest::turnWheelDown(const QPoint &position)
{
    hover(position);
    QWheelEvent event(position, window->mapToGlobal(position), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    event.setTimestamp(m_time += 50);
    QCoreApplication::sendEvent(window, &event);
}

QStringList ViewTest::tabStops() const
{
    constexpr int kMany = 40;
    QStringList stops;
    QSet<const QQuickItem *> seen;
    while (stops.size() < kMany) {
        QTest::keyClick(window, Qt::Key_Tab);
        const QQuickItem *item = window->activeFocusItem();
        if (item == nullptr || seen.contains(item)) {
            break;
        }
        seen.insert(item);
        stops.append(item->objectName().isEmpty() ? u"?"_s : item->objectName());
    }
    return stops;
}

void ViewTest::type(const QString &text) const
{
    for (const QChar character : text) {
        QTest::keyClick(window, character.toLatin1());
    }
}

void ViewTest::hold(int key, int repetitions)
{
    quint64 time = m_time += 1000;
    send(QEvent::KeyPress, key, time);
    for (time += 660; repetitions > 0; --repetitions, time += 40) {
        send(QEvent::KeyRelease, key, time);
        send(QEvent::KeyPress, key, time);
        manager->waitUntilIdle();
        QCoreApplication::processEvents();
    }
    send(QEvent::KeyRelease, key, time);
    m_time = time;
}

void ViewTest::send(QEvent::Type type, int key, quint64 time) const
{
    QKeyEvent event(type, key, Qt::NoModifier);
    event.setTimestamp(time);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace quorvane
