#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <map>

namespace quorvane {

/// A home as a user has it after a while: pictures with prompts, a 4K copy with its link, a favourite, three keys,
/// settings and, among them, one that is another version's. Made anew for each run of the program.
class FaultHome
{
  public:
    /// Puts everything into folder, which is made where it is not there. settings are had besides those of every home.
    explicit FaultHome(QString folder, const std::map<QString, QString> &settings = {});

    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] QString library() const;
    [[nodiscard]] QString keyFile() const;
    [[nodiscard]] QString settingsFile() const;

    /// What a command takes away or changes on purpose: names of pictures, ids of keys, names of settings.
    struct Meant
    {
        QStringList pictures = {};
        QStringList favorites = {};
        QStringList keys = {};
        QStringList settings = {};
    };

    /// What was there and is neither there now nor aside in a hidden file, a line each; empty when nothing is lost.
    [[nodiscard]] QStringList lost(const Meant &meant) const;

    /// Temporary files that lie about.
    [[nodiscard]] QStringList temporaries() const;

    /// The files with keys that others than the owner may read.
    [[nodiscard]] QStringList openedKeys() const;

    /// What the files say now.
    [[nodiscard]] std::map<QString, QString> prompts() const;
    [[nodiscard]] std::map<QString, QString> links() const;
    [[nodiscard]] QStringList favorites() const;
    [[nodiscard]] std::map<QString, QString> keys() const;
    /// Whether the key file, or one that was put aside from it, has that key.
    [[nodiscard]] bool keepsKey(const QString &id, const QString &key) const;
    /// A value as the settings file has it; null where it has none.
    [[nodiscard]] QString setting(const QString &name) const;

  private:
    /// Whether a file of names and texts, or one that was put aside from it, has that text under that name.
    [[nodiscard]] bool isKept(const QString &file, const QString &name, const QString &text) const;

    /// The file itself and what was put aside from it.
    [[nodiscard]] QStringList versionsOf(const QString &file) const;

    QString m_path;
    std::map<QString, QByteArray> m_pictures;
    std::map<QString, QString> m_settings;
};

} // namespace quorvane
