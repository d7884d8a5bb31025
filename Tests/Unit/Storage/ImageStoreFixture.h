#pragma once

#include "Storage/CreationDate.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <dirent.h>

namespace quorvane {

using namespace Qt::StringLiterals;

class ImageStoreTest : public testing::Test
{
  protected:
    [[nodiscard]] QString at(const char *name) const { return m_home.library() + '/'_L1 + QString::fromUtf8(name); }
    [[nodiscard]] bool put(const char *name, const QByteArray &content = "x") const
    {
        return putFile(at(name), content);
    }
    [[nodiscard]] QByteArray content(const char *name) const { return contentOf(at(name)); }

    /// Makes a file that is provably younger than the file before.
    [[nodiscard]] bool putLater(const char *name, const char *before) const
    {
        for (int attempt = 0; attempt < 100'000; ++attempt) {
            if (!put(name)) {
                return false;
            }
            if (creationDate(at(name)) > creationDate(at(before))) {
                return true;
            }
            QFile::remove(at(name));
        }
        return false;
    }

    [[nodiscard]] static QStringList sorted(QStringList list)
    {
        list.sort();
        return list;
    }

    PrivateHome m_home;
};

inline QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace quorvane
