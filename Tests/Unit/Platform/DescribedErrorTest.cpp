#include "Platform/DescribedError.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(DescribedError, itsWordsAreWholeWhateverTheyHold)
{
    const QString words = u"before"_s + QChar(u'\0') + u"after 水"_s;
    EXPECT_EQ(failureOf(DescribedError(words)).words, words);
    EXPECT_STREQ(DescribedError(words).what(), "before");
}

TEST(DescribedError, otherExceptionsAreReadAsUtf8)
{
    EXPECT_EQ(failureOf(std::runtime_error("水 is missing")).words, u"水 is missing"_s);
}

TEST(DescribedError, anExceptionWithoutATextIsStillAFailure)
{
    EXPECT_EQ(failureOf(std::runtime_error("")).words, u"The reason is not known."_s);
    EXPECT_EQ(failureOf(DescribedError(QString())).words, u"The reason is not known."_s);
}

} // namespace quorvane
