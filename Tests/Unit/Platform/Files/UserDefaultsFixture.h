#pragma once

#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace quorvane {

using namespace Qt::StringLiterals;

class UserDefaultsTest : public testing::Test
{
  protected:
    [[nodiscard]] QString path() const { return home.path() + u"/.config/Quorvane/Quorvane.conf"_s; }

    /// The file itself, which every writing replaces by another.
    [[nodiscard]] ino_t file() const
    {
        struct stat status = {};
        return ::stat(QFile::encodeName(path()).constData(), &status) == 0 ? status.st_ino : 0;
    }

    PrivateHome home;
};

} // namespace quorvane
