#include "Platform/X11/X11Connection.h"

#include <cerrno>
#include <cstring>

#include <xcb/randr.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The server's limits are the machine's; every other error is ours, and told by its numbers in the protocol.
Failure failureOf(const xcb_generic_error_t &error)
{
    return {error.error_code == XCB_ALLOC
                ? qt_error_string(ENOMEM)
                : u"X error %1, request %2.%3"_s.arg(error.error_code).arg(error.major_code).arg(error.minor_code)};
}

} // namespace

X11Connection::X11Connection(const QByteArray &display)
{
    int screenNumber = 0;
    m_connection = xcb_connect(display.constData(), &screenNumber);
    if (xcb_connection_has_error(m_connection) == 0) {
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
        for (; screenNumber > 0 && screens.rem > 1; --screenNumber) {
            xcb_screen_next(&screens);
        }
        m_screen = screens.data;
    }
}

X11Connection::~X11Connection()
{
    xcb_disconnect(m_connection);
}

bool X11Connection::isUsable() const
{
    return m_screen != nullptr && xcb_connection_has_error(m_connection) == 0;
}

QList<X11Connection::Monitor> X11Connection::monitors() const
{
    const QRect root(0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels);
    const std::optional<QList<Monitor>> described = randrMonitors();
    if (!described) {
        return isUsable() ? QList<Monitor>{{u"screen"_s, root}} : QList<Monitor>();
    }
    QList<Monitor> monitors;
    for (const Monitor &monitor : *described) {
        const QRect visible = monitor.area & root;
        if (!visible.isEmpty() && !monitor.name.isEmpty()) {
            monitors.append({monitor.name, visible});
        }
    }
    return monitors;
}

std::optional<QList<X11Connection::Monitor>> X11Connection::randrMonitors() const
{
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(m_connection, &xcb_randr_id);
    if (extension == nullptr || extension->present == 0) {
        return std::nullopt;
    }
    const XcbReply<xcb_randr_query_version_reply_t> version(
        xcb_randr_query_version_reply(m_connection, xcb_randr_query_version(m_connection, 1, 5), nullptr));
    if (!version || (version->major_version == 1 && version->minor_version < 5)) {
        return std::nullopt;
    }
    const XcbReply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        m_connection, xcb_randr_get_monitors(m_connection, m_screen->root, /*get_active=*/1), nullptr));
    QList<Monitor> monitors;
    if (reply) {
        auto all = xcb_randr_get_monitors_monitors_iterator(reply.get());
        for (; all.rem > 0; xcb_randr_monitor_info_next(&all)) {
            const xcb_randr_monitor_info_t &monitor = *all.data;
            monitors.append({atomName(monitor.name), QRect(monitor.x, monitor.y, monitor.width, monitor.height)});
        }
    }
    return monitors;
}

std::optional<X11PixelFormat> X11Connection::pixelFormat() const
{
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    X11PixelFormat format;
    format.depth = m_screen->root_depth;
    format.isLowByteFirst = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    format.bitsPerPixel = 0;
    for (auto formats = xcb_setup_pixmap_formats_iterator(setup); formats.rem > 0; xcb_format_next(&formats)) {
        if (formats.data->depth == m_screen->root_depth) {
            format.bitsPerPixel = formats.data->bits_per_pixel;
            format.scanlinePadBits = formats.data->scanline_pad;
        }
    }
    auto depths = xcb_screen_allowed_depths_iterator(m_screen);
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            const xcb_visualtype_t &visual = *visuals.data;
            if (visual.visual_id == m_screen->root_visual && visual._class == XCB_VISUAL_CLASS_TRUE_COLOR) {
                format.redMask = visual.red_mask;
                format.greenMask = visual.green_mask;
                format.blueMask = visual.blue_mask;
                return format.isSupported() ? std::optional(format) : std::nullopt;
            }
        }
    }
    return std::nullopt;
}

xcb_atom_t X11Connection::atom(const char *name) const
{
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QString X11Connection::atomName(xcb_atom_t atom) const
{
    const XcbReply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, atom), nullptr));
    return reply ? QString::fromUtf8(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QString();
}

Result<> X11Connection::finish() const
{
    // Any request with an answer will do: it comes after the errors of everything before it.
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    Result<> finished = reply ? kDone : Failure{qt_error_string(ECONNRESET)};
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        if (finished && event->response_type == 0) { // 0 marks an error.
            finished = failureOf(*reinterpret_cast<const xcb_generic_error_t *>(event.get()));
        }
    }
    return finished;
}

} // namespace quorvane
