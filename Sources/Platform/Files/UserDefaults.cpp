#include "Platform/Files/UserDefaults.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Platform/Files/SystemCall.h"
#include "Platform/Files/WholeFile.h"
#include "Platform/Threads/Worker.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <map>
#include <mutex>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// A prompt can be long, but nobody types this much.
constexpr qint64 kLargestFileBytes = qint64{64} * 1024 * 1024;

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(UserDefaults)
};

using Changes = std::map<QString, std::optional<QString>>; ///< Nothing under a key removes it.

void apply(const Changes &changes, SettingsText &content)
{
    for (const auto &[key, value] : changes) {
        if (value) {
            content.set(key, *value);
        } else {
            content.remove(key);
        }
    }
}

Result<SettingsText> readContent(const QString &path)
{
    const Result<std::optional<QByteArray>> bytes = readWholeIfAny(path, kLargestFileBytes);
    if (!bytes) {
        return Failure{Tr::tr("could not read %1: %2").arg(path, bytes.failure().words)};
    }
    return SettingsText(bytes->value_or(QByteArray()));
}

} // namespace

/// What is to be written, and how. Any thread; but only one writes at a time.
class UserDefaults::Writer
{
  public:
    explicit Writer(QString path)
        : m_path(std::move(path))
    {
    }

    void add(const QString &key, const std::optional<QString> &value)
    {
        const std::lock_guard lock(m_mutex);
        m_pending.insert_or_assign(key, value);
    }

    /// Brings everything pending into the file. What fails stays pending.
    Result<> write()
    {
        const Changes changes = taken();
        const Result<> result = changes.empty() ? Result<>() : write(changes);
        if (!result) {
            // What was changed again in the meantime goes before.
            const std::lock_guard lock(m_mutex);
            m_pending.insert(changes.begin(), changes.end());
        }
        return result;
    }

  private:
    Changes taken()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_pending, {});
    }

    [[nodiscard]] Result<> write(const Changes &changes) const
    {
        // Most changes are none, and those need neither a lock nor a folder.
        if (const auto needed = edited(changes); !needed || !*needed) {
            return needed ? Result<>() : needed.failure();
        }
        const QString folder = QFileInfo(m_path).path();
        if (!QDir().mkpath(folder)) {
            return notWritten(systemWords(errno));
        }
        const FolderLock lock(folder);
        const auto content = edited(changes);
        if (!content || !*content) {
            return content ? Result<>() : content.failure();
        }
        const Result<> written = writeFileAtomically(m_path, (*content)->bytes());
        return written ? written : notWritten(written.failure().words);
    }

    [[nodiscard]] Failure notWritten(const QString &words) const
    {
        return Failure{Tr::tr("could not write %1: %2").arg(m_path, words)};
    }

    /// The file as it is now, with the changes; nothing where it has them already.
    [[nodiscard]] Result<std::optional<SettingsText>> edited(const Changes &changes) const
    {
        Result<SettingsText> content = readContent(m_path);
        if (!content) {
            return content.failure();
        }
        const QByteArray before = content->bytes();
        apply(changes, *content);
        return content->bytes() == before ? std::nullopt : std::optional(*content);
    }

    QString m_path;
    std::mutex m_mutex;
    Changes m_pending;
};

UserDefaults::UserDefaults(const QString &path)
    : m_writer(std::make_shared<Writer>(path))
{
    m_thread.setMaxThreadCount(1);
    const Result<SettingsText> content = readContent(path);
    if (content) {
        m_content = *content;
    } else {
        m_reading = content.failure();
    }
}

UserDefaults::~UserDefaults()
{
    written(sync());
}

QString UserDefaults::defaultPath()
{
    return Paths::configHome() + u"/Quorvane/Quorvane.conf"_s;
}

std::optional<QString> UserDefaults::text(const QString &key) const
{
    return m_content.value(key);
}

bool UserDefaults::boolean(const QString &key) const
{
    return QVariant(text(key).value_or(QString())).toBool();
}

qint64 UserDefaults::integer(const QString &key) const
{
    return text(key).value_or(QString()).toLongLong();
}

bool UserDefaults::contains(const QString &key) const
{
    return text(key).has_value();
}

void UserDefaults::set(const QString &key, const QVariant &value)
{
    m_content.set(key, value.toString());
    m_writer->add(key, value.toString());
    writeSoon();
}

void UserDefaults::remove(const QString &key)
{
    m_content.remove(key);
    m_writer->add(key, std::nullopt);
    writeSoon();
}

void UserDefaults::writeSoon()
{
    if (m_isWriteAsked) {
        return;
    }
    m_isWriteAsked = true;
    m_mailbox.post([this] {
        m_isWriteAsked = false;
        runOnPool(&m_thread, [this, writer = m_writer] {
            const Result<> result = writer->write();
            m_mailbox.post([this, result] { written(result); });
        });
    });
}

void UserDefaults::written(const Result<> &result)
{
    const bool isFirst = !m_hasFailed;
    m_hasFailed = !result;
    if (m_hasFailed && isFirst && failed) {
        failed(result.failure());
    }
}

Result<> UserDefaults::sync()
{
    m_thread.waitForDone();
    return m_writer->write();
}

QCoro::Task<Result<>> UserDefaults::keeping()
{
    auto write = [writer = m_writer] { return writer->write(); };
    co_return co_await onWorker(&m_thread, std::move(write));
}

} // namespace quorvane
