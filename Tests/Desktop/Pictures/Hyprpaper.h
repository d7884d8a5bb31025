#pragma once

#include <QFile>
#include <QMap>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <mutex>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quorvane {

using namespace Qt::StringLiterals;

/// Keeps what hyprpaper would keep: the files that it has read, and which one each monitor shows.
class Hyprpaper
{
  public:
    enum class Version {
        Listing, ///< Knows "listloaded" and "unload unused".
        Old,
        Binary, ///< Speaks another protocol altogether.
    };

    explicit Hyprpaper(const QString &path, Version version = Version::Listing)
        : m_version(version)
        , m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(&address.sun_path[0], QFile::encodeName(path).constData(), sizeof(address.sun_path) - 1);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
        EXPECT_EQ(::listen(m_socket, 10), 0);
        m_thread = std::jthread([this](const std::stop_token &stop) { serve(stop); });
    }
    ~Hyprpaper()
    {
        m_thread.request_stop();
        ::shutdown(m_socket, SHUT_RDWR);
        m_thread.join();
        ::close(m_socket);
    }
    Hyprpaper(const Hyprpaper &) = delete;
    Hyprpaper &operator=(const Hyprpaper &) = delete;

    [[nodiscard]] QStringList loaded() const
    {
        const std::lock_guard lock(m_mutex);
        return m_loaded;
    }
    [[nodiscard]] QMap<QString, QString> shown() const
    {
        const std::lock_guard lock(m_mutex);
        return m_shown;
    }

  private:
    void serve(const std::stop_token &stop)
    {
        while (!stop.stop_requested()) {
            const int client = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
            if (client < 0) {
                return;
            }
            std::array<char, 1024> request{};
            const ssize_t count = ::read(client, request.data(), request.size());
            const QByteArray reply = answer(QByteArray(request.data(), std::max<ssize_t>(0, count)));
            // Who only looks whether somebody listens does not wait for the answer.
            const ssize_t sent =
                ::send(client, reply.constData(), static_cast<std::size_t>(reply.size()), MSG_NOSIGNAL);
            EXPECT_TRUE(sent == reply.size() || count <= 0) << sent;
            ::close(client);
        }
    }

    QByteArray answer(const QByteArray &request)
    {
        if (m_version == Version::Binary) {
            return QByteArray("\x01\x00\x02", 3);
        }
        const std::lock_guard lock(m_mutex);
        const QString value = QString::fromUtf8(request.mid(request.indexOf(' ') + 1)).trimmed();
        if (request == "listloaded" && m_version == Version::Listing) {
            return m_loaded.isEmpty() ? "no wallpapers loaded" : m_loaded.join('\n'_L1).toUtf8();
        }
        if (request.startsWith("preload ")) {
            if (!QFile::exists(value)) {
                return "preload failed (no such file)";
            }
            m_loaded.append(value);
            return "ok";
        }
        if (request.startsWith("wallpaper ")) {
            const qsizetype comma = value.indexOf(','_L1);
            const QString file = value.mid(comma + 1);
            if (!m_loaded.contains(file)) {
                return "wallpaper failed (not preloaded)";
            }
            m_shown.insert(value.left(comma), file);
            return "ok";
        }
        if (request == "unload unused" && m_version == Version::Listing) {
            m_loaded.removeIf([this](const QString &file) { return !m_shown.values().contains(file); });
            return "ok";
        }
        return request.startsWith("unload ") ? "ok" : "invalid command";
    }

    Version m_version;
    int m_socket;
    mutable std::mutex m_mutex;
    QStringList m_loaded;
    QMap<QString, QString> m_shown;
    std::jthread m_thread; ///< Last: it uses everything above.
};

} // namespace quorvane
