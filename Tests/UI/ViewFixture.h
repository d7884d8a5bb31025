#pragma once

#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQmlApplicationEngine>
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
    ViewTest();
    ~ViewTest() override;
    void TearDown() override { EXPECT_EQ(takeWarnings().toStdString(), ""); }

    /// What Qt has warned of since it was asked last, a line each.
    [[nodiscard]] static QString takeWarnings() { return std::exchange(s_warnings, {}).join('\n'_L1); }

    /// A window of the module over the manager, shown and active.
    QQuickWindow *open(const QString &name = u"MainWindow"_s);
    /// One more window of the module over the same manager, as the settings are opened over the main window.
    [[nodiscard]] std::unique_ptr<QQuickWindow> openBeside(const QString &name);

    /// The item of that name: one that is seen before one that is not, for grids keep tiles they no longer show.
    [[nodiscard]] QQuickItem *find(const QString &name) const;
    /// The first item of that name at or below another; one that is seen, if it must be.
    [[nodiscard]] static QQuickItem *findBelow(QQuickItem *item, const QString &name, bool mustBeSeen);
    /// Whether the item of that name is there and seen.
    [[nodiscard]] bool isSeen(const QString &name) const;
    /// What an item with a text shows.
    [[nodiscard]] static QString textOf(const QQuickItem *item);

    /// Whether the pointer can get to the item: it is seen, and laid out within the window.
    [[nodiscard]] bool isReachable(const QString &name) const;

    /// Clicks the middle of the item, once it is where it stays.
    void click(const QString &name);
    [[nodiscard]] static QPoint middleOf(const QQuickItem *item);
    void hover(const QPoint &position) const { QTest::mouseMove(window, position); }

    /// Turns the wheel by one notch there, towards the end of what is below the pointer.
    void turnWheelDown(const QPoint &position);

    /// Where the item lies in its window.
    [[nodiscard]] QRectF placeOf(const QString &name) const;

    /// What Tab comes to from where the keyboard is, once around; an item without a name is "?".
    [[nodiscard]] QStringList tabStops() const;

    /// Presses a key for each character, which has to be of Latin 1.
    void type(const QString &text) const;
    /// What a window gets from an X server for a key: a press, and for each repetition a release and a press of one
    /// time.
    void hold(int key, int repetitions);

    /// A painted picture in the library, made with that prompt; none is recorded for an empty one.
    [[nodiscard]] static QString putPainting(const QString &name, const QString &prompt, QSize size = {480, 300});

    /// The colours of a desktop that is light or dark.
    [[nodiscard]] static QPalette palette(const QColor &background, const QColor &text);

    QQuickWindow *window = nullptr;

  private:
    void send(QEvent::Type type, int key, quint64 time) const;
    static void note(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message);

    static inline QStringList s_warnings;
    quint64 m_time = 100000; ///< Of the keys that are held and the wheel that is turned.
    QtMessageHandler m_previousHandler = nullptr;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
};

} // namespace quorvane
