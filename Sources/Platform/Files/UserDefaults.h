#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace quorvane {

/// The user's settings: texts, booleans and integers under names, kept in "Quorvane/Quorvane.conf" of the
/// configuration folder. Reading never fails: an absent key reads as empty, false or 0. Belongs to the main thread.
class UserDefaults
{
  public:
    /// The file of this user; path overrides it in tests.
    explicit UserDefaults(const QString &path = defaultPath());

    [[nodiscard]] static QString defaultPath();

    /// The text under key; nothing when the key is absent.
    [[nodiscard]] std::optional<QString> text(const QString &key) const;
    [[nodiscard]] bool boolean(const QString &key) const;
    [[nodiscard]] qint64 integer(const QString &key) const;
    [[nodiscard]] bool contains(const QString &key) const;

    /// The change reaches the file at the next turn of the event loop, or with sync().
    void set(const QString &key, const QVariant &value);
    void remove(const QString &key);

    /// Writes what is pending and reads what another process wrote. False when writing failed. Blocks on the disk.
    bool sync();

  private:
    QSettings m_settings;
};

} // namespace quorvane
