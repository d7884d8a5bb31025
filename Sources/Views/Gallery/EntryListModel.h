#pragma once

#include "Views/Gallery/ListUpdate.h"

#include <QAbstractListModel>

#include <algorithm>
#include <vector>

namespace quorvane {

/// A list model whose rows are replaced as a whole, and which tells its views no more than what is different then.
/// Entry has an operator== and, through keyOf, a key that no two rows share.
template <typename Entry> class EntryListModel : public QAbstractListModel
{
  public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const std::vector<Entry> &entries() const { return m_entries; }
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_entries.size());
    }
    /// The row of the entry with that key; -1 where there is none.
    [[nodiscard]] int rowOf(const QString &key) const
    {
        const auto hasKey = [this, &key](const Entry &entry) { return keyOf(entry) == key; };
        const auto found = std::find_if(m_entries.begin(), m_entries.end(), hasKey);
        return found != m_entries.end() ? int(found - m_entries.begin()) : -1;
    }

  protected:
    [[nodiscard]] virtual QString keyOf(const Entry &entry) const = 0;
    [[nodiscard]] const Entry &entryAt(const QModelIndex &index) const { return m_entries[std::size_t(index.row())]; }

    void replace(std::vector<Entry> entries)
    {
        const ListUpdate update = listUpdate(keysOf(m_entries), keysOf(entries));
        for (const Rows &rows : update.removed) {
            beginRemoveRows({}, rows.first, rows.first + rows.count - 1);
            m_entries.erase(m_entries.begin() + rows.first, m_entries.begin() + rows.first + rows.count);
            endRemoveRows();
        }
        for (const Move &move : update.moved) {
            // Qt names the row before which the moved one is put, as the rows are numbered before the move.
            beginMoveRows({}, move.from, move.from, {}, move.to > move.from ? move.to + 1 : move.to);
            const auto from = m_entries.begin() + move.from;
            const auto to = m_entries.begin() + move.to;
            move.to > move.from ? std::rotate(from, from + 1, to + 1) : std::rotate(to, from, from + 1);
            endMoveRows();
        }
        for (const Rows &rows : update.added) {
            beginInsertRows({}, rows.first, rows.first + rows.count - 1);
            m_entries.insert(m_entries.begin() + rows.first, entries.begin() + rows.first,
                             entries.begin() + rows.first + rows.count);
            endInsertRows();
        }
        for (std::size_t row = 0; row < m_entries.size(); ++row) {
            if (m_entries[row] != entries[row]) {
                m_entries[row] = std::move(entries[row]);
                Q_EMIT dataChanged(index(int(row)), index(int(row)));
            }
        }
    }

  private:
    [[nodiscard]] QStringList keysOf(const std::vector<Entry> &entries) const
    {
        QStringList keys;
        keys.reserve(qsizetype(entries.size()));
        for (const Entry &entry : entries) {
            keys.append(keyOf(entry));
        }
        return keys;
    }

    std::vector<Entry> m_entries;
};

} // namespace quorvane
