#include "UI/ViewFixture.h"

#include "Support/Results.h"
#include "Views/Views.h"
#include "demo-service/Painter/Painter.h"

#include <QBuffer>
#include <QQmlComponent>

namespace quorvane {

ViewTest::ViewTest()
{
    s_warnings.clear();
    m_previousHandler = qInstallMessageHandler(&ViewTest::note);
    QGuiApplication::setPalette(palette(Qt::white, Qt::black));
}

ViewTest::~ViewTest()
{
    m_engine.reset();
    qInstallMessageHandler(m_previousHandler);
}

QQuickWindow *ViewTest::open(const QString &name)
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

std::unique_ptr<QQuickWindow> ViewTest::openBeside(const QString &name)
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

QQuickItem *ViewTest::find(const QString &name) const
{
    QQuickItem *seen = findBelow(window->contentItem(), name, true);
    return seen != nullptr ? seen : findBelow(window->contentItem(), name, false);
}

QQuickItem *ViewTest::findBelow(QQuickItem *item, const QString &name, bool mustBeSeen)
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

bool ViewTest::isSeen(const QString &name) const
{
    const QQuickItem *item = find(name);
    return item != nullptr && item->isVisible();
}

QString ViewTest::textOf(const QQuickItem *item)
{
    return item != nullptr ? item->property("text").toString() : u"(no such item)"_s;
}

QRectF ViewTest::placeOf(const QString &name) const
{
    const QQuickItem *item = find(name);
    return item != nullptr ? item->mapRectToScene(QRectF(0, 0, item->width(), item->height())) : QRectF();
}

QString ViewTest::putPainting(const QString &name, const QString &prompt, QSize size)
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

QPalette ViewTest::palette(const QColor &background, const QColor &text)
{
    QPalette palette(background);
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    return palette;
}

void ViewTest::note(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg) {
        s_warnings.append(message);
    }
}

} // namespace quorvane
