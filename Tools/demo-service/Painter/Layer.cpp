#include "demo-service/Painter/Layer.h"

#include "demo-service/Painter/Sky.h"

#include <array>

namespace quorvane::painter {

namespace {

constexpr int kLooksPerColumn = 4;

/// Where one layer begins in a column, at several places across it: slopes get smooth edges from their mean.
struct Edge
{
    std::array<float, kLooksPerColumn> rows;

    [[nodiscard]] float lowest() const { return *std::max_element(rows.begin(), rows.end()); }
    [[nodiscard]] float highest() const { return *std::min_element(rows.begin(), rows.end()); }
    [[nodiscard]] float coverage(float row) const
    {
        float sum = 0;
        for (const float edge : rows) {
            sum += clamp01(row - edge + 0.5F);
        }
        return sum / kLooksPerColumn;
    }
};

Edge edgeOf(const Canvas &canvas, const Layer &layer, int column)
{
    Edge edge{};
    for (int look = 0; look < kLooksPerColumn; ++look) {
        const float at = static_cast<float>(column) + (static_cast<float>(look) + 0.5F) / kLooksPerColumn - 0.5F;
        edge.rows[static_cast<size_t>(look)] = canvas.row(layer.top(canvas.x(at)));
    }
    return edge;
}

} // namespace

void paintLandscape(Canvas &canvas, const Scene &scene, const Layers &layers, float lowestY)
{
    const auto columns = static_cast<size_t>(canvas.width());
    const int lastRow = std::min(static_cast<int>(canvas.row(lowestY)) + 1, canvas.height() - 1);
    std::vector<std::vector<Edge>> edges(layers.size(), std::vector<Edge>(columns));
    inParallel(canvas.width(), [&](int column) {
        for (size_t i = 0; i < layers.size(); ++i) {
            edges[i][static_cast<size_t>(column)] = edgeOf(canvas, *layers[i], column);
        }
    });
    // hidden[i]: the row from which layers nearer than i cover everything.
    std::vector<std::vector<int>> hidden(layers.size() + 1, std::vector<int>(columns, lastRow));
    for (size_t i = layers.size(); i-- > 0;) {
        for (size_t column = 0; column < columns; ++column) {
            hidden[i][column] = std::min(hidden[i + 1][column], static_cast<int>(edges[i][column].lowest() + 1.5F));
        }
    }
    paintSky(canvas, scene, hidden[0]);
    inParallel(canvas.width(), [&](int column) {
        for (size_t i = 0; i < layers.size(); ++i) {
            const Edge &edge = edges[i][static_cast<size_t>(column)];
            const float top = canvas.y(edge.highest());
            const float x = canvas.x(static_cast<float>(column));
            const int last = hidden[i + 1][static_cast<size_t>(column)];
            for (int row = std::max(static_cast<int>(edge.highest()) - 1, 0); row <= last; ++row) {
                const float coverage = edge.coverage(static_cast<float>(row));
                if (coverage > 0) {
                    const float y = canvas.y(static_cast<float>(row));
                    canvas.blend(column, row, layers[i]->shade(x, y, std::max(y - top, 0.0F)), coverage);
                }
            }
        }
    });
}

} // namespace quorvane::painter
