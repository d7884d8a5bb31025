#include "Upscaling/Image/TileGrid.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(TileGrid, roundsUpToWholeTiles)
{
    struct Case
    {
        QSize source;
        int columns;
        int rows;
        QSize padded;
        QSize canvas;
        QSize result;
    };
    const Case cases[] = {
        {{512, 512}, 1, 1, {512, 512}, {2048, 2048}, {2048, 2048}},
        {{513, 1}, 2, 1, {1024, 512}, {4096, 2048}, {2052, 4}},
        {{1, 1}, 1, 1, {512, 512}, {2048, 2048}, {4, 4}},
        {{1920, 1080}, 4, 3, {2048, 1536}, {8192, 6144}, {7680, 4320}},
        {{3840, 2160}, 8, 5, {4096, 2560}, {16384, 10240}, {15360, 8640}},
    };
    for (const Case &known : cases) {
        const TileGrid grid(known.source);
        EXPECT_EQ(grid.columns(), known.columns);
        EXPECT_EQ(grid.rows(), known.rows);
        EXPECT_EQ(grid.count(), known.columns * known.rows);
        EXPECT_EQ(grid.paddedSize(), known.padded);
        EXPECT_EQ(grid.canvasSize(), known.canvas);
        EXPECT_EQ(grid.resultSize(), known.result);
    }
}

TEST(TileGrid, tilesAbutAndTheLastOnesEndWithThePicture)
{
    const TileGrid grid(QSize(1100, 600));
    EXPECT_EQ(grid.sourceRect(0, 0), QRect(0, 0, 512, 512));
    EXPECT_EQ(grid.sourceRect(1, 0), QRect(512, 0, 512, 512));
    EXPECT_EQ(grid.sourceRect(2, 0), QRect(1024, 0, 76, 512));
    EXPECT_EQ(grid.sourceRect(2, 1), QRect(1024, 512, 76, 88));
}

} // namespace quorvane
