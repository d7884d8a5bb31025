#include "Support/Desktop/PrivateXServer.h"

#include <cstdlib>
#include <cstring>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Freed
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename Reply> using XcbReply = std::unique_ptr<Reply, Freed>;

struct Disconnected
{
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnected>;

xcb_window_t rootOf(const Connection &connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
}

xcb_atom_t atomOf(const Connection &connection, const char *name)
{
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection.get(), xcb_intern_atom(connection.get(), 0, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// Knows the two pixel formats that the servers here have: 32 bits for depth 24, and 16 bits as 5, 6 and 5.
QImage imageOf(const Connection &connection, xcb_drawable_t drawable)
{
    const XcbReply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection.get(), xcb_get_geometry(connection.get(), drawable), nullptr));
    if (!geometry) {
        return {};
    }
    const XcbReply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(connection.get(),
                            xcb_get_image(connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, 0, 0, geometry->width,
                                          geometry->height, ~0U),
                            nullptr));
    if (!reply) {
        return {};
    }
    const auto format = reply->depth == 16 ? QImage::Format_RGB16 : QImage::Format_RGB32;
    const int rowBytes = xcb_get_image_data_length(reply.get()) / geometry->height;
    return QImage(xcb_get_image_data(reply.get()), geometry->width, geometry->height, rowBytes, format)
        .convertToFormat(QImage::Format_RGB32)
        .copy();
}

} // namespace

QString PrivateXServer::missingProgram()
{
    return firstMissing({u"Xvfb"_s, u"xrandr"_s});
}

PrivateXServer::PrivateXServer(QSize root, int depth, const QStringList &extraOptions)
{
    const QString screen = u"%1x%2x%3"_s.arg(root.width()).arg(root.height()).arg(depth);
    const QStringList options{u"-displayfd"_s, u"1"_s,         u"-screen"_s, u"0"_s,
                              screen,          u"-nolisten"_s, u"tcp"_s,     u"-noreset"_s};
    start(u"Xvfb"_s, options + extraOptions, OwnedProgram::User::Same);
}

void PrivateXServer::start(const QString &program, const QStringList &options, OwnedProgram::User user)
{
    OwnedProgram::handOver(m_folder.path(), user);
    QProcessEnvironment environment;
    environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
    m_number = std::make_unique<DisplayNumber>();
    m_program = std::make_unique<OwnedProgram>(program, QStringList{QString::fromLatin1(m_number->display())} + options,
                                               environment, m_folder.path(), user);
    if (m_program->readLine().isEmpty()) {
        qWarning("%s did not start: %s", qUtf8Printable(program), m_program->errors().constData());
    } else {
        m_display = m_number->display();
    }
}

PrivateXServer::~PrivateXServer() = default;

QProcessEnvironment PrivateXServer::clientEnvironment() const
{
    QProcessEnvironment environment;
    environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"DISPLAY"_s, QString::fromLatin1(m_display));
    return environment;
}

bool PrivateXServer::addMonitor(const QString &name, const QRect &area)
{
    const QString geometry = u"%1/200x%2/200+%3+%4"_s.arg(area.width()).arg(area.height()).arg(area.x()).arg(area.y());
    // Giving it the only output makes a monitor replace the one that covers everything.
    const QString output = m_hasMonitors ? u"none"_s : u"screen"_s;
    m_hasMonitors = true;
    return !outputOf(u"xrandr"_s, {u"--setmonitor"_s, name, geometry, output}, clientEnvironment()).isNull();
}

QImage PrivateXServer::rootWindow() const
{
    const Connection connection(xcb_connect(m_display.constData(), nullptr));
    return xcb_connection_has_error(connection.get()) == 0 ? imageOf(connection, rootOf(connection)) : QImage();
}

quint32 PrivateXServer::announcedPixmap(const char *property) const
{
    const Connection connection(xcb_connect(m_display.constData(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) {
        return 0;
    }
    const XcbReply<xcb_get_property_reply_t> value(xcb_get_property_reply(
        connection.get(),
        xcb_get_property(connection.get(), 0, rootOf(connection), atomOf(connection, property), XCB_ATOM_PIXMAP, 0, 1),
        nullptr));
    const bool isPixmap = value && xcb_get_property_value_length(value.get()) == sizeof(xcb_pixmap_t);
    return isPixmap ? *static_cast<const xcb_pixmap_t *>(xcb_get_property_value(value.get())) : 0;
}

QImage PrivateXServer::pixelsOf(quint32 pixmap) const
{
    const Connection connection(xcb_connect(m_display.constData(), nullptr));
    return xcb_connection_has_error(connection.get()) == 0 ? imageOf(connection, pixmap) : QImage();
}

QList<quint32> PrivateXServer::windows() const
{
    const Connection connection(xcb_connect(m_display.constData(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) {
        return {};
    }
    const XcbReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), rootOf(connection)), nullptr));
    if (!tree) {
        return {};
    }
    const xcb_atom_t protocols = atomOf(connection, "WM_PROTOCOLS");
    QList<quint32> found;
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        const xcb_window_t window = xcb_query_tree_children(tree.get())[index];
        const XcbReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
        const XcbReply<xcb_get_property_reply_t> property(xcb_get_property_reply(
            connection.get(), xcb_get_property(connection.get(), 0, window, protocols, XCB_ATOM_ATOM, 0, 1), nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE && property &&
            xcb_get_property_value_length(property.get()) > 0) {
            found.append(window);
        }
    }
    return found;
}

void PrivateXServer::askToClose(quint32 window) const
{
    const Connection connection(xcb_connect(m_display.constData(), nullptr));
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atomOf(connection, "WM_PROTOCOLS");
    event.data.data32[0] = atomOf(connection, "WM_DELETE_WINDOW");
    // Waits for the server, which would not read what was sent before the end of a connection.
    const auto sent = xcb_send_event_checked(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                                             reinterpret_cast<const char *>(&event));
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection.get(), sent));
}

} // namespace quorvane
