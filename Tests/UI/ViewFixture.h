#pragma once

#include "Support/Results.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"
#include "Views/Views.h"
#include "demo-service/Painter/Painter.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPalette>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest/QTest>

#include <memory>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A real window over a real manager, clicked and typed at as a user does. Whatever Qt warns of fails the test.
class ViewTest : public ManagerTest
{
  protected:
    ViewTest()
    {
        s_warnings.clear();
        m_previousHandler = qInstallMessageHandler(&ViewTest::note);
        QGuiApplication::setPalette(palette(Qt::white, Qt::black));
    }
    ~ViewTest() override
    {
        m_engine.reset();
        qInstallMessageHandler(m_previousHandler);
    }
    void TearDown() override { EXPECT_EQ(takeWarnings().toStdString(), ""); }

    /// What Qt has warned of since it was asked last, a line each.
    [[nodiscard]] static QString takeWarnings() { return std::exchange(s_warnings, {}).join('\n'_L1); }

    /// A window of the module over the manager, shown and active.
    QQuickWindow *open(const QString &name = u"MainWindow"_s)
    {
        m_engine = std::make_unique<QQmlApplicationEngine>();
        installViews(m_engine.get());
        m_engine->setInitialProperties({{u"manager"_s, QVariant::fromValue(manager.get())}});
        m_engine->load(QUrl(u"qrc:/qt/qml/Quorvane/Views/%1.qml"_s.arg(name)));
        if (m_engine->rootObjects().isEmpty()) {
            ADD_FAILURE() << "the window cannot be loaded: " << s_warnings.join('\n'_L1).toStdString();
            return nullptr;
        }
        window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().first());
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return window;
    }

    /// One more window of the module over the same manager, as the settings are opened over the main window.
    [[nodiscard]] std::unique_ptr<QQuickWindow> openBeside(const QString &name)
    {
        QQmlComponent component(m_engine.get(), QUrl(u"qrc:/qt/qml/Quorvane/Views/%1.qml"_s.arg(name)));
        std::unique_ptr<QObject> made(
            component.createWithInitialProperties({{u"manager"_s, QVariant::fromValue(manager.get())}}));
        if (qobject_cast<QQuickWindow *>(made.get()) == nullptr) {
            ADD_FAILURE() << "the window cannot be loaded: " << component.errorString().toStdString();
            return nullptr;
        }
        std::unique_ptr<QQuickWindow> beside(static_cast<QQuickWindow *>(made.release()));
        beside->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(beside.get()));
        return beside;
    }

    /// The item of that name: one that is seen before one that is not, for grids keep tiles they no longer show.
    [[nodiscard]] QQuickItem *find(const QString &name) const
    {
        QQuickItem *seen = findBelow(window->contentItem(), name, true);
        return seen != nullptr ? seen : findBelow(window->contentItem(), name, false);
    }

    /// The first item of that name at or below another; one that is seen, if it must be.
    [[nodiscard]] static QQuickItem *findBelow(QQuickItem *item, const QString &name, bool mustBeSeen)
    {
        if (mustBeSeen && !item->isVisible()) {
            return nullptr;
        }
        if (item->objectName() == name) {
            return item;
        }
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *found = findBelow(child, name, mustBeSeen)) {
                return found;
            }
        }
        return nullptr;
    }

    /// Whether the item of that name is there and seen.
    [[nodiscard]] bool isSeen(const QString &name) const
    {
        const QQuickItem *item = find(name);
        return item != nullptr && item->isVisible();
    }

    [[nodiscard]] static QString textOf(const QQuickItem *item)
    {
        return item != nullptr ? item->property("text").toString() : u"(no such item)"_s;
    }

    /// Whether the pointer can get to the item: it is seen, and laid out within the window.
    [[nodiscard]] bool isReachable(const QString &name) const
    {
        return isSeen(name) && QRect(QPoint(), window->size()).contains(middleOf(find(name)));
    }

    /// Clicks the middle of the item, once it is where it stays.
    void click(const QString &name)
    {
        ASSERT_TRUE(waitFor([&] { return isReachable(name); }, std::chrono::seconds(5))) << name.toStdString();
        const QQuickItem *item = find(name);
        ASSERT_TRUE(item->isEnabled()) << name.toStdString();
        QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(item));
    }
    [[nodiscard]] static QPoint middleOf(const QQuickItem *item)
    {
        return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    }
    void hover(const QPoint &position) const { QTest::mouseMove(window, position); }

    /// Turns the wheel by one notch there, towards the end of what is below the pointer.
    void turnWheelDown(const QPoint &position)
    {
        hover(position);
        QWheelEvent event(position, window->mapToGlobal(position), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        event.setTimestamp(m_time += 50);
        QCoreApplication::sendEvent(window, &event);
    }

    /// Where the item lies in its window.
    [[nodiscard]] QRectF placeOf(const QString &name) const
    {
        const QQuickItem *item = find(name);
        return item != nullptr ? item->mapRectToScene(QRectF(0, 0, item->width(), item->height())) : QRectF();
    }

    /// What Tab comes to from where the keyboard is, once around; an item without a name is "?".
    [[nodiscard]] QStringList tabStops() const
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

    void type(const QString &text) const
    {
        for (const QChar character : text) {
            QTest::keyClick(window, character.toLatin1());
        }
    }

    /// What a window gets from an X server for a key: a press, and for each repetition a release and a press of one
    /// time.
    void hold(int key, int repetitions)
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

    /// A painted picture in the library, made with that prompt; none is recorded for an empty one.
    [[nodiscard]] static QString putPainting(const QString &name, const QString &prompt, QSize size = {480, 300})
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
        EXPECT_TRUE(paintPicture(prompt.isEmpty() ? name : prompt, size).save(&buffer, "PNG"));
        const QString path = valueOf(ImageStore::saveImage(name, bytes));
        if (!prompt.isEmpty()) {
            EXPECT_TRUE(ImageStore::savePrompt(prompt, name));
        }
        return path;
    }

    [[nodiscard]] static QPalette palette(const QColor &background, const QColor &text)
    {
        QPalette palette(background);
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::Base, background);
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Text, text);
        return palette;
    }

    QQuickWindow *window = nullptr;

  private:
    void send(QEvent::Type type, int key, quint64 time) const
    {
        QKeyEvent event(type, key, Qt::NoModifier);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(window, &event);
    }
    static void note(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
    {
        if (type != QtDebugMsg && type != QtInfoMsg) {
            s_warnings.append(message);
        }
    }

    static inline QStringList s_warnings;
    quint64 m_time = 100000; ///< Of the keys that are held and the wheel that is turned.
    QtMessageHandler m_previousHandler = nullptr;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
};

} // namespace quorvane
