// Another program, into whose window files are dropped: its title tells whether something is over it, and standard
// output what was let go there. "DropReceiver panel" is a panel at the top of a right screen that begins at 1280.

#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QRasterWindow>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

class Receiver final : public QRasterWindow
{
  protected:
    bool event(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            take(static_cast<QDropEvent *>(event));
            setTitle(u"something is over it"_s);
            return true;
        case QEvent::DragLeave:
            setTitle(u"nothing is over it"_s);
            return true;
        case QEvent::Drop:
            take(static_cast<QDropEvent *>(event));
            setTitle(u"nothing is over it"_s);
            tell(*static_cast<QDropEvent *>(event));
            return true;
        default:
            return QRasterWindow::event(event);
        }
    }
    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).fillRect(QRect({}, size()), Qt::blue); }

  private:
    static void take(QDropEvent *event)
    {
        event->setDropAction(Qt::CopyAction);
        event->setAccepted(event->mimeData()->hasFormat(u"text/uri-list"_s));
    }
    static void tell(const QDropEvent &event)
    {
        const QByteArray list = event.mimeData()->data(u"text/uri-list"_s);
        std::printf("%s %s\n", event.possibleActions() == Qt::CopyAction ? "copy" : "more than copy",
                    list.trimmed().constData());
        std::fflush(stdout);
    }
};

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    Receiver window;
    window.setFlags(Qt::FramelessWindowHint);
    if (QGuiApplication::arguments().contains(u"panel"_s)) {
        constexpr int kDock = 4;
        window.setProperty("_q_xcb_wm_window_type", kDock);
        window.setGeometry(1280, 0, 800, 24);
    } else {
        window.setGeometry(1000, 300, 180, 180);
    }
    window.setTitle(u"nothing is over it"_s);
    window.show();
    return QCoreApplication::exec();
}
