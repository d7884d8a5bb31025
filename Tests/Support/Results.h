#pragma once

#include "Platform/Failure.h"

#include <gtest/gtest.h>

#include <ostream>

namespace quorvane {

/// How gtest writes them.
inline void PrintTo(const Failure &failure, std::ostream *out)
{
    *out << "Failure{" << failure.words.toStdString() << '}';
}
inline void PrintTo(const Result<> &result, std::ostream *out)
{
    if (result) {
        *out << "done";
    } else {
        PrintTo(result.failure(), out);
    }
}

/// The words of a failure, to look into; "done" after success.
template <typename T> QString wordsOf(const Result<T> &result)
{
    return result ? QStringLiteral("done") : result.failure().words;
}

/// The value of what has to succeed; an empty one, and a failure of the test, where it did not.
template <typename T> T valueOf(const Result<T> &result)
{
    EXPECT_TRUE(result) << wordsOf(result).toStdString();
    return result ? *result : T();
}

} // namespace quorvane
