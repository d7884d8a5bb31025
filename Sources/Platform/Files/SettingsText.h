#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

/// The content of a settings file, in the INI form that QSettings reads and writes. Only the keys of the general group
/// are seen. A change touches the lines of its key alone, so comments, other groups, other programs' keys and lines
/// that nobody understands stay byte for byte.
class SettingsText
{
  public:
    explicit SettingsText(QByteArray bytes = {})
        : m_bytes(std::move(bytes))
    {
    }

    /// The text under key; nothing where the key is absent or holds nothing that reads as a text.
    [[nodiscard]] std::optional<QString> value(const QString &key) const;

    /// Nothing changes where the key holds that text already. key is a name of ASCII letters, digits, "_", "-" and ".".
    void set(const QString &key, const QString &value);
    void remove(const QString &key);

    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

  private:
    QByteArray m_bytes;
};

} // namespace quorvane
