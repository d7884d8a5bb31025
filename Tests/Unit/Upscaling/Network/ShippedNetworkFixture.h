#pragma once

#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/SuperResolutionModel.h"
#include "demo-service/Painter/Painter.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace quorvane {

constexpr int kScale = 4;
inline const QString kNetwork = QStringLiteral(QUORVANE_SHIPPED_NETWORK);

[[nodiscard]] QImage testPicture(const char *name);

[[nodiscard]] QImage enlargedByNetwork(const QImage &small, int threads);

[[nodiscard]] QImage paintedScene(const char *prompt, QSize size);

/// Every pixel the mean of the 4 × 4 that it stands for.
[[nodiscard]] QImage reduced(const QImage &image);

/// Keys' kernel with a = -1/2.
[[nodiscard]] double cubic(double distance);

[[nodiscard]] QImage enlargedByBicubic(const QImage &small);

[[nodiscard]] double luma(QRgb pixel);

/// Peak signal-to-noise ratio on luma, in dB.
[[nodiscard]] double psnr(const QImage &one, const QImage &other);

[[nodiscard]] std::array<double, 3> channelMeans(const QImage &image);

/// The mean luma step between the columns left of x and at x.
[[nodiscard]] double step(const QImage &image, int x);

[[nodiscard]] int largestDifference(const QImage &one, const QImage &other);

} // namespace quorvane
