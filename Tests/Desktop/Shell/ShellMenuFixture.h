#pragma once

#include "ShellFixture.h"

namespace quorvane {

using namespace Qt::StringLiterals;

inline const QString kLabel = u"label"_s;
inline const QString kStatus = u"Status"_s;
using ShellMenuTest = ShellTest;

} // namespace quorvane
