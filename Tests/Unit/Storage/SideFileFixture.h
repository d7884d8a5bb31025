#pragma once

#include "Storage/SideFile.h"

#include <gtest/gtest.h>

namespace quorvane {

inline QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

inline const TextMap kNone;

} // namespace quorvane
