#pragma once

#include "Platform/Threads/LatestReading.h"
#include "Views/ViewModel.h"

#include <QQmlListProperty>

#include <optional>

namespace quorvane {

/// The key of one service: the text in its field, and whether a key is stored.
class APIKeyRow : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to APIKeysModel.")
    Q_PROPERTY(QString section MEMBER section CONSTANT)
    Q_PROPERTY(QString label MEMBER label CONSTANT)
    Q_PROPERTY(QString help MEMBER help CONSTANT)
    Q_PROPERTY(QString providerId MEMBER providerId CONSTANT)
    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    Q_PROPERTY(QString key READ key WRITE setKey NOTIFY changed)
    Q_PROPERTY(bool saved READ saved NOTIFY changed)
    Q_PROPERTY(bool unsaved READ unsaved NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
    Q_PROPERTY(QString saveLabel READ saveLabel NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)

  public:
    /// Both outlive it.
    APIKeyRow(const ImageProvider &provider, WallpaperManager *manager, QObject *parent);

    [[nodiscard]] QString placeholder() const;
    [[nodiscard]] const QString &key() const { return m_key; }
    void setKey(const QString &key);
    [[nodiscard]] bool saved() const { return m_saved; }
    /// Whether the field holds something else than what is stored.
    [[nodiscard]] bool unsaved() const { return m_key != m_stored.value_or(QString()); }
    [[nodiscard]] bool canSave() const { return !m_key.isEmpty(); }
    [[nodiscard]] QString saveLabel() const;
    /// Why the last change was not kept; empty when it was.
    [[nodiscard]] const QString &problem() const { return m_problem; }

    /// Stores the text, if there is one, and calls it saved once it is.
    Q_INVOKABLE void save();
    /// Stores the text, if there is one; what Return in the field does. Whether the row counts as saved stays.
    Q_INVOKABLE void submit();
    /// Removes this service's key, and no other, and empties the field once it is gone. It can be brought back.
    Q_INVOKABLE void remove();

    /// The tab appears: the field takes a stored key over, unless it holds something that is not saved.
    void load(const TextMap &keys);
    /// The stored keys may have been changed elsewhere: as above, and a key that is gone is saved no longer.
    void follow(const TextMap &keys);

    QString section;
    QString label;
    QString providerId;
    QString help;

  Q_SIGNALS:
    void changed();

  private:
    bool isKept(const Result<> &result);

    WallpaperManager *m_manager;
    QString m_key;
    std::optional<QString> m_stored; ///< As far as it is known here.
    bool m_saved = false;
    QString m_problem;
};

/// The tab of the keys. It follows what other windows and programs do with them.
class APIKeysModel : public quorvane::ViewModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQmlListProperty<QObject> rows READ rowList NOTIFY managerChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)

  public:
    explicit APIKeysModel(QObject *parent = nullptr);

    /// APIKeyRow, one for each provider.
    [[nodiscard]] const QList<QObject *> &rows() const { return m_rows; }
    [[nodiscard]] QQmlListProperty<QObject> rowList() { return {this, &m_rows}; }

    /// The tab appears: takes over every stored key. A row without one is left as it is.
    Q_INVOKABLE void loadAllKeys();

    /// Looks again at what other programs may have changed: the key file. Returns at once.
    Q_INVOKABLE void refresh();

    /// Whether a key was removed here a moment ago.
    [[nodiscard]] bool canUndo() const;
    /// Brings it back, unless there is another one by now.
    Q_INVOKABLE void undo();

  Q_SIGNALS:
    void canUndoChanged();

  private:
    void attach() override;

    QList<QObject *> m_rows;
    LatestReading<TextMap> m_reading;
};

} // namespace quorvane
