#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/SettingsText.h"
#include "Platform/Threads/Mailbox.h"

#include <QCoroTask>
#include <QString>
#include <QThreadPool>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

namespace quorvane {

/// The user's settings: texts, booleans and integers under names, kept in "Quorvane/Quorvane.conf" of the
/// configuration folder. Reading never fails: an absent key reads as empty, false or 0. Belongs to the main thread.
///
/// Changes are written behind the caller's back, on a thread of their own. Each time the file is read again and nothing
/// but what was changed here is put into it, whole or not at all, so other processes and programs keep theirs. A file
/// that exists and cannot be read is never replaced: the change fails, and is tried again with the next one.
class UserDefaults
{
  public:
    /// The file of this user; path overrides it in tests.
    explicit UserDefaults(const QString &path = defaultPath());
    /// Writes what is pending.
    ~UserDefaults();
    UserDefaults(const UserDefaults &) = delete;
    UserDefaults &operator=(const UserDefaults &) = delete;
    UserDefaults(UserDefaults &&) = delete;
    UserDefaults &operator=(UserDefaults &&) = delete;

    [[nodiscard]] static QString defaultPath(); ///< The user's settings file, in the folder of configurations.

    /// The text under key; nothing when the key is absent.
    [[nodiscard]] std::optional<QString> text(const QString &key) const;
    [[nodiscard]] bool boolean(const QString &key) const;   ///< False when the key is absent.
    [[nodiscard]] qint64 integer(const QString &key) const; ///< 0 when the key is absent or holds no number.
    [[nodiscard]] bool contains(const QString &key) const;  ///< Whether the key has a value of any kind.

    /// The change is in force at once. It reaches the file some time after the next turn of the event loop.
    void set(const QString &key, const QVariant &value);
    void remove(const QString &key); ///< Likewise; a key that is absent changes nothing.

    /// Whether the file could be read at the start, or there is none.
    [[nodiscard]] const Result<> &reading() const { return m_reading; }

    /// Writes what is pending, and waits for it. Blocks on the disk.
    Result<> sync();

    /// The same without holding the thread up. This must live until it has ended.
    [[nodiscard]] QCoro::Task<Result<>> keeping();

    /// Called, when set, at the first of several writes in a row that fail, of those nobody waits for.
    std::function<void(const Failure &)> failed;

  private:
    class Writer;

    void writeSoon();
    void written(const Result<> &result);

    SettingsText m_content; ///< With everything that was changed here.
    Result<> m_reading;
    std::shared_ptr<Writer> m_writer;
    bool m_isWriteAsked = false; ///< The next turn of the event loop begins to write.
    bool m_hasFailed = false;    ///< The last write that nobody waited for.
    Mailbox m_mailbox;
    QThreadPool m_thread; ///< One thread. Last, so that it is waited for before the rest goes.
};

} // namespace quorvane
