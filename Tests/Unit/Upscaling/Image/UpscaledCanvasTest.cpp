#include "Upscaling/Image/UpscaledCanvas.h"

#include "Providers/ProviderError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What becomes of a canvas for a picture of that size. Nothing is drawn, so the memory is never touched.
QString outcomeFor(QSize size)
{
    try {
        const QImage source(size, QImage::Format_RGB32);
        const UpscaledCanvas canvas(source);
        return u"a canvas"_s;
    } catch (const ProviderError &error) {
        return error.errorDescription();
    }
}

} // namespace

TEST(UpscaledCanvas, hasAtMostSoManyPixelsAndNotOneRowOfTilesMore)
{
    // Sixteen tiles of 2048 pixels in a row, and sixteen rows: 2 to the 30th.
    static_assert(UpscaledCanvas::kMostPixels == qint64(16 * 2048) * (16 * 2048));
    EXPECT_EQ(outcomeFor({8192, 8192}), u"a canvas"_s);
    EXPECT_EQ(outcomeFor({8192, 8193}), u"Invalid response: Failed to create output context"_s);
    EXPECT_EQ(outcomeFor({8193, 8192}), u"Invalid response: Failed to create output context"_s);
}

} // namespace quorvane
