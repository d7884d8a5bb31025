#include "Upscaling/Image/AlphaChannel.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvane {

namespace {

QImage alphas(std::vector<std::vector<int>> rows)
{
    QImage image(int(rows.front().size()), int(rows.size()), QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.scanLine(y)[4 * x + 3] = static_cast<uchar>(rows[std::size_t(y)][std::size_t(x)]);
        }
    }
    return image;
}

std::vector<int> enlargedRow(const QImage &source, int resultY)
{
    std::vector<std::uint8_t> row(4 * std::size_t(source.width()));
    enlargedAlphaRow(source, resultY, row);
    return {row.begin(), row.end()};
}

} // namespace

TEST(AlphaChannel, isLinearBetweenPixelCentresAndConstantBeyondTheLast)
{
    EXPECT_EQ(enlargedRow(alphas({{0, 80}}), 0), (std::vector<int>{0, 0, 10, 30, 50, 70, 80, 80}));
}

TEST(AlphaChannel, isLinearFromRowToRowToo)
{
    const QImage source = alphas({{0}, {80}});
    std::vector<int> column;
    for (int y = 0; y < 8; ++y) {
        column.push_back(enlargedRow(source, y).front());
    }
    EXPECT_EQ(column, (std::vector<int>{0, 0, 10, 30, 50, 70, 80, 80}));
}

TEST(AlphaChannel, anEvenAlphaStaysAsItIs)
{
    for (const int alpha : {0, 1, 127, 254, 255}) {
        EXPECT_EQ(enlargedRow(alphas({{alpha, alpha}, {alpha, alpha}}), 3), std::vector<int>(8, alpha));
    }
}

TEST(AlphaChannel, colorsAreDividedByTheirAlpha)
{
    const std::uint8_t colors[] = {50, 100, 0, 9, 9, 9, 255, 255, 255, 10, 20, 30};
    const std::uint8_t alpha[] = {100, 0, 128, 255};
    std::uint8_t joined[16];
    joinColorsAndAlpha(colors, alpha, joined);
    const std::vector<int> found(std::begin(joined), std::end(joined));
    EXPECT_EQ(found, (std::vector<int>{128, 255, 0, 100, 0, 0, 0, 0, 255, 255, 255, 128, 10, 20, 30, 255}));
}

} // namespace quorvane
