#pragma once

#include <QByteArray>

#include <gtest/gtest.h>

namespace quorvane {

/// Byte 25 of a PNG: 2 for three colours, 6 for three colours and alpha.
inline int colorTypeOf(const QByteArray &png)
{
    return png.size() > 25 ? png.at(25) : -1;
}

} // namespace quorvane
