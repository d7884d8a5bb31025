#include "Manager/Operations.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Kind = Operation::Kind;

UpscaleProgress tiles(int done, int total)
{
    return {done, total, std::nullopt};
}

} // namespace

TEST(Operations, eachHasTheNumberThatWasAnnounced)
{
    Operations operations;
    const quint64 announced = operations.next();
    EXPECT_EQ(operations.begin(Kind::Setting)->result.operation, announced);
    EXPECT_NE(operations.next(), announced);
}

TEST(Operations, aPictureIsBeingMadeUntilTheLastGenerationAndUpscaleHaveEnded)
{
    Operations operations;
    EXPECT_FALSE(operations.isAnyMaking());
    const OperationRef generation = operations.begin(Kind::Generation);
    const OperationRef upscale = operations.begin(Kind::Upscale);
    const OperationRef setting = operations.begin(Kind::Setting);
    const OperationRef change = operations.begin(Kind::LibraryChange);
    operations.end(generation);
    EXPECT_TRUE(operations.isAnyMaking());
    operations.end(upscale);
    EXPECT_FALSE(operations.isAnyMaking());
}

TEST(Operations, theNewestOnesProgressIsToldAndTheEndOfAnotherHidesNothing)
{
    Operations operations;
    const OperationRef older = operations.begin(Kind::Upscale);
    const OperationRef newer = operations.begin(Kind::Upscale);
    older->source = u"/a.png"_s;
    newer->source = u"/b.png"_s;
    EXPECT_EQ(operations.progress(), std::nullopt);
    advance(*older, tiles(5, 10));
    EXPECT_EQ(operations.progress(), tiles(5, 10));
    advance(*newer, tiles(1, 4));
    advance(*older, tiles(6, 10));
    EXPECT_EQ(operations.progress(), tiles(1, 4));
    EXPECT_EQ(operations.upscaling(), u"/b.png"_s);
    operations.end(newer);
    EXPECT_EQ(operations.progress(), tiles(6, 10));
    EXPECT_EQ(operations.upscaling(), u"/a.png"_s);
    operations.end(older);
    EXPECT_EQ(operations.progress(), std::nullopt);
    EXPECT_EQ(operations.upscaling(), QString());
}

TEST(Operations, progressOnlyGoesForward)
{
    Operation operation;
    advance(operation, tiles(5, 10));
    advance(operation, tiles(3, 10));
    EXPECT_EQ(operation.progress, tiles(5, 10));
    advance(operation, tiles(2, 3));
    EXPECT_EQ(operation.progress, tiles(2, 3));
    // What is left to do is news in any case.
    advance(operation, {1, 3, std::chrono::milliseconds(70)});
    EXPECT_EQ(operation.progress, (UpscaleProgress{2, 3, std::chrono::milliseconds(70)}));
}

TEST(Operations, onlyThoseThatEnlargeTheDeletedPictureStop)
{
    Operations operations;
    const OperationRef wanted = operations.begin(Kind::Upscale);
    const OperationRef unwanted = operations.begin(Kind::Generation);
    const OperationRef setting = operations.begin(Kind::Setting);
    wanted->source = u"/library/a.png"_s;
    unwanted->source = u"/library/b.png"_s;
    unwanted->result.original = unwanted->source;
    operations.stopEnlarging(u"/library/b.png"_s, u"deleted"_s);
    EXPECT_FALSE(wanted->isStopped());
    EXPECT_FALSE(setting->isStopped());
    EXPECT_TRUE(unwanted->isStopped());
    EXPECT_TRUE(unwanted->isSourceDeleted);
    EXPECT_EQ(unwanted->result.original, QString());
}

TEST(Operations, theFirstReasonToStopIsTheOneThatIsTold)
{
    Operations operations;
    const OperationRef operation = operations.begin(Kind::Upscale);
    stop(*operation, u"deleted"_s);
    operations.stopAll(u"quitting"_s);
    EXPECT_EQ(operation->stopReason, u"deleted"_s);
    EXPECT_FALSE(operation->isSourceDeleted);
}

} // namespace quorvane
