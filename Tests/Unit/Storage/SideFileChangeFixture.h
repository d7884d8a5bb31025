#pragma once

#include "Platform/Files/StorageNotices.h"
#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

class SideFileChangeTest : public testing::Test
{
  protected:
    SideFileChangeTest()
    {
        (void)StorageNotices::take(); // Those of other tests.
    }

    [[nodiscard]] QString keyFolder() const { return m_home.path() + u"/Library/Application Support/Quorvane"_s; }
    [[nodiscard]] QString inLibrary(const char *name) const
    {
        return m_home.library() + '/'_L1 + QString::fromUtf8(name);
    }

    PrivateHome m_home;
};

} // namespace quorvane
