// hyprpaper takes one request a connection and answers with one line: "ok", or what went wrong. Later versions list
// what they have; newer ones still speak a binary protocol, which is left alone: our own surface lies above theirs.

#include "Platform/Desktops/DesktopPictureHyprland.h"

#include "Platform/Desktops/DesktopPictureSway.h"
#include "Platform/Files/UnixSocket.h"
#include "Platform/Pictures/PictureCopy.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include <poll.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureHyprland)
};

const QString kOk = u"ok"_s;
/// hyprpaper reads no more of a request.
constexpr qsizetype kRequestLimit = 1023;
/// Far more than any list of files.
constexpr qsizetype kReplyLimit = 1024L * 1024;

/// Everything until the other side closes; nothing when it does not in time.
std::optional<QByteArray> readAll(int descriptor, QDeadlineTimer deadline)
{
    QByteArray reply;
    std::array<char, 4096> piece{};
    while (reply.size() < kReplyLimit) {
        pollfd waited{descriptor, POLLIN, 0};
        const int ready = ::poll(&waited, 1, static_cast<int>(deadline.remainingTime()));
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return std::nullopt;
        }
        const ssize_t count = ::recv(descriptor, piece.data(), piece.size(), MSG_DONTWAIT);
        if (count == 0) {
            return reply;
        }
        if (count < 0 && errno != EAGAIN && errno != EINTR) {
            return std::nullopt;
        }
        reply.append(piece.data(), std::max<ssize_t>(0, count));
    }
    return std::nullopt;
}

/// hyprpaper strips blanks, takes the first comma for its own, and "~" for the home.
bool isPlain(const QString &path)
{
    return DesktopPictureSway::isPlainPath(path) && path.toUtf8().size() < kRequestLimit / 2;
}

Failure silence()
{
    return {Tr::tr("hyprpaper does not answer")};
}

bool isText(const QByteArray &reply)
{
    return !reply.isEmpty() && std::all_of(reply.begin(), reply.end(), [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code >= ' ' || letter == '\n' || letter == '\t' || letter == '\r';
    });
}

} // namespace

DesktopPictureHyprland::DesktopPictureHyprland(QStringList socketFolders, const QString &display, QString reason,
                                               ProgramLife life, std::chrono::milliseconds limit)
    : m_socketFolders(std::move(socketFolders))
    , m_reason(std::move(reason))
    , m_limit(limit)
    , m_ownSurfaces(display, {}, life, limit)
{
}

QStringList DesktopPictureHyprland::socketFolders(const QString &signature)
{
    // The name is one folder's; anything else would lead elsewhere.
    if (signature.isEmpty() || signature.contains('/'_L1)) {
        return {};
    }
    QStringList folders{u"/tmp/hypr/"_s + signature};
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(session)) {
        folders.prepend(session + u"/hypr/"_s + signature);
    }
    return folders;
}

bool DesktopPictureHyprland::answers(const QStringList &socketFolders, std::chrono::milliseconds limit)
{
    return std::any_of(socketFolders.begin(), socketFolders.end(), [limit](const QString &folder) {
        return bool(connectUnixSocket(folder + u"/.socket.sock"_s, QDeadlineTimer(limit)));
    });
}

bool DesktopPictureHyprland::endsWithTheProgram()
{
    return !loadedFiles(QDeadlineTimer(m_limit));
}

Result<> DesktopPictureHyprland::setPicture(const QString &path, const QList<Screen> &screens)
{
    // Half for finding out, half for the rest.
    const Result<QStringList> loaded = loadedFiles(QDeadlineTimer(m_limit / 2));
    return loaded ? setByHyprpaper(path, *loaded, screens) : m_ownSurfaces.setPicture(path, screens);
}

Result<> DesktopPictureHyprland::setByHyprpaper(const QString &path, const QStringList &loaded,
                                                const QList<Screen> &screens)
{
    const Result<HandedPicture> handed = m_handover.handOver(path, {.loaded = loaded, .takesPath = isPlain});
    if (!handed) {
        return handed.failure();
    }
    const QDeadlineTimer deadline(m_limit / 2);
    // What hyprpaper has read already is not read again.
    QStringList requests;
    if (!loaded.contains(handed->path)) {
        requests.append(u"preload "_s + handed->path);
    }
    for (const Screen &screen : screens) {
        requests.append(u"wallpaper %1,%2"_s.arg(screen.name, handed->path));
    }
    for (const QString &request : requests) {
        const Result<QString> reply = ask(request, deadline);
        if (!reply || *reply != kOk) {
            m_handover.failed(*handed);
            const Failure refusal = reply ? Failure{*reply} : reply.failure();
            return refusal.words.isEmpty() ? silence() : refusal;
        }
    }
    m_handover.succeeded(path, *handed);
    // Both only free memory: an older hyprpaper knows no "unused", and neither changes what is shown.
    (void)ask(u"unload unused"_s, deadline);
    PictureCopy::removeAllBut(handed->path);
    m_ownSurfaces.remove();
    return kDone;
}

Result<QString> DesktopPictureHyprland::ask(const QString &request, QDeadlineTimer deadline) const
{
    const QByteArray bytes = request.toUtf8();
    if (bytes.size() > kRequestLimit || bytes.contains('\n')) {
        return Failure{Tr::tr("hyprpaper cannot take \"%1\"").arg(request)};
    }
    FileDescriptor connection;
    for (auto folder = m_socketFolders.begin(); folder != m_socketFolders.end() && !connection.isOpen(); ++folder) {
        if (Result<FileDescriptor> opened = connectUnixSocket(*folder + u"/.hyprpaper.sock"_s, deadline)) {
            connection = std::move(*opened);
        }
    }
    const auto size = static_cast<std::size_t>(bytes.size());
    if (connection.isOpen() && ::send(connection.get(), bytes.constData(), size, MSG_NOSIGNAL) == bytes.size()) {
        const std::optional<QByteArray> reply = readAll(connection.get(), deadline);
        if (reply && isText(*reply)) {
            return QString::fromUtf8(*reply).trimmed();
        }
    }
    return silence();
}

Result<QStringList> DesktopPictureHyprland::loadedFiles(QDeadlineTimer deadline) const
{
    const Result<QString> reply = ask(u"listloaded"_s, deadline);
    if (!reply) {
        return reply.failure();
    }
    // A version that has no such list says so in words, none of which is a path.
    QStringList files = reply->split('\n'_L1, Qt::SkipEmptyParts);
    files.removeIf([](const QString &line) { return !line.startsWith('/'_L1); });
    return files;
}

} // namespace quorvane
