// The pixmap is made on a connection of its own, which is closed in the mode that leaves its resources behind. The
// convention of root pixmaps is that the next program to set one frees ours by killing the client that made it: on a
// connection used for anything else, that would be the end of this program.

#include "Platform/Desktops/DesktopPictureX11.h"

#include "Platform/Pictures/FillCrop.h"
#include "Platform/Pictures/PictureFile.h"
#include "Platform/Threads/TimeLimit.h"
#include "Platform/X11/X11Connection.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureX11)
};

/// Rows are sent in pieces of about this size, or less where the server takes less.
constexpr qsizetype kPieceBytes = 1024L * 1024;
constexpr qsizetype kPutImageHeaderBytes = 32;

/// Where one screen's picture goes.
struct Placement
{
    QImage picture;
    QPoint position;
};

void send(const X11Connection &x, xcb_pixmap_t pixmap, xcb_gcontext_t context, const Placement &placement,
          const X11PixelFormat &format)
{
    const QImage &picture = placement.picture;
    const qsizetype requestBytes = qsizetype(xcb_get_maximum_request_length(x.get())) * 4 - kPutImageHeaderBytes;
    const qsizetype rowBytes = format.bytesPerRow(picture.width());
    const int rowsAtOnce = static_cast<int>(std::max<qsizetype>(1, std::min(requestBytes, kPieceBytes) / rowBytes));
    for (int first = 0; first < picture.height(); first += rowsAtOnce) {
        const int count = std::min(rowsAtOnce, picture.height() - first);
        const QByteArray bytes = packedRows(picture, first, count, format);
        xcb_put_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, static_cast<uint16_t>(picture.width()),
                      static_cast<uint16_t>(count), static_cast<int16_t>(placement.position.x()),
                      static_cast<int16_t>(placement.position.y() + first), 0, x.screen()->root_depth,
                      static_cast<uint32_t>(bytes.size()), reinterpret_cast<const uint8_t *>(bytes.constData()));
    }
}

/// A pixmap of the root window's size and depth with the placements on black.
xcb_pixmap_t paintedPixmap(const X11Connection &x, const QList<Placement> &placements, const X11PixelFormat &format)
{
    const xcb_screen_t &screen = *x.screen();
    const xcb_pixmap_t pixmap = xcb_generate_id(x.get());
    xcb_create_pixmap(x.get(), screen.root_depth, pixmap, screen.root, screen.width_in_pixels, screen.height_in_pixels);
    const xcb_gcontext_t context = xcb_generate_id(x.get());
    xcb_create_gc(x.get(), context, pixmap, XCB_GC_FOREGROUND, &screen.black_pixel);
    const xcb_rectangle_t everything{0, 0, screen.width_in_pixels, screen.height_in_pixels};
    xcb_poly_fill_rectangle(x.get(), pixmap, context, 1, &everything);
    for (const Placement &placement : placements) {
        send(x, pixmap, context, placement, format);
    }
    xcb_free_gc(x.get(), context); // Nothing but the pixmap shall stay behind.
    return pixmap;
}

xcb_pixmap_t announcedPixmap(const X11Connection &x, xcb_atom_t property)
{
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x.get(), xcb_get_property(x.get(), 0, x.screen()->root, property, XCB_ATOM_PIXMAP, 0, 1), nullptr));
    if (!reply || reply->type != XCB_ATOM_PIXMAP || reply->format != 32 ||
        xcb_get_property_value_length(reply.get()) != sizeof(xcb_pixmap_t)) {
        return XCB_PIXMAP_NONE;
    }
    return *static_cast<const xcb_pixmap_t *>(xcb_get_property_value(reply.get()));
}

/// Makes the pixmap the background and frees the one before. The grab keeps another program from doing the same in
/// between; it ends with the connection if we die.
void publish(const X11Connection &x, xcb_pixmap_t pixmap)
{
    const xcb_atom_t current = x.atom("_XROOTPMAP_ID");
    const xcb_atom_t owned = x.atom("ESETROOT_PMAP_ID");
    const xcb_window_t root = x.screen()->root;
    xcb_grab_server(x.get());
    const xcb_pixmap_t oldCurrent = announcedPixmap(x, current);
    const xcb_pixmap_t oldOwned = announcedPixmap(x, owned);
    xcb_set_close_down_mode(x.get(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, root, current, XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, root, owned, XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    xcb_change_window_attributes(x.get(), root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(x.get(), 0, root, 0, 0, 0, 0);
    // Only a program that wrote both properties made its pixmap to be freed like this. The pixmap may be gone by now,
    // so the error is nobody's business.
    if (oldCurrent != XCB_PIXMAP_NONE && oldCurrent == oldOwned) {
        xcb_discard_reply(x.get(), xcb_kill_client_checked(x.get(), oldCurrent).sequence);
    }
    xcb_ungrab_server(x.get());
}

Failure silence()
{
    return {Tr::tr("The X server does not answer")};
}

/// What the server says of what was sent so far.
Result<> takenBy(const X11Connection &x)
{
    const Result<> finished = x.finish();
    return finished ? kDone
                    : Failure{Tr::tr("The X server did not take the picture: %1").arg(finished.failure().words)};
}

Result<> setRootPicture(const QByteArray &display, const QImage &picture, const QList<Screen> &screens,
                        const std::stop_token &stop)
{
    const X11Connection x(display);
    if (!x.isUsable()) {
        return Failure{Tr::tr("The X server cannot be reached")};
    }
    const std::optional<X11PixelFormat> format = x.pixelFormat();
    if (!format) {
        return Failure{Tr::tr("The X server's colours are of a kind that is not supported")};
    }
    const QList<X11Connection::Monitor> monitors = x.monitors();
    QList<Placement> placements;
    for (const Screen &screen : screens) {
        const auto monitor = std::find_if(monitors.begin(), monitors.end(),
                                          [&](const X11Connection::Monitor &each) { return each.name == screen.name; });
        if (monitor == monitors.end()) {
            return Failure{Tr::tr("The X server has no screen \"%1\"").arg(screen.name)};
        }
        const QImage filled = filledPicture(picture, monitor->area.size());
        placements.append({filled.convertToFormat(QImage::Format_ARGB32_Premultiplied), monitor->area.topLeft()});
        if (placements.constLast().picture.isNull()) {
            return Failure{Tr::tr("There is not enough memory for the picture")};
        }
    }
    const xcb_pixmap_t pixmap = paintedPixmap(x, placements, *format);
    if (Result<> taken = takenBy(x); !taken) {
        return taken;
    }
    if (stop.stop_requested()) {
        return silence(); // Nobody waits any more, and a newer picture may be shown already.
    }
    publish(x, pixmap);
    return takenBy(x);
}

} // namespace

DesktopPictureX11::DesktopPictureX11(QByteArray display, QString reason, std::chrono::milliseconds limit)
    : m_display(std::move(display))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

QList<Screen> DesktopPictureX11::screens()
{
    auto listed = withinLimit(m_limit, [display = m_display](const std::stop_token &) {
        QList<Screen> screens;
        const X11Connection x(display);
        if (x.isUsable()) {
            const QList<X11Connection::Monitor> monitors = x.monitors();
            for (const X11Connection::Monitor &monitor : monitors) {
                screens.append({monitor.name, monitor.area.size()});
            }
        }
        return screens;
    });
    return listed.value_or(QList<Screen>());
}

Result<> DesktopPictureX11::setPicture(const QString &path, const QList<Screen> &screens)
{
    // Decoding comes first, so that the server's time is not spent on it.
    const Result<PictureFile> file = readPicture(path);
    if (!file) {
        return file.failure();
    }
    auto result =
        withinLimit(m_limit, [display = m_display, picture = file->image, screens](const std::stop_token &stop) {
            return setRootPicture(display, picture, screens, stop);
        });
    return result ? *result : silence();
}

} // namespace quorvane
