// Which layers make which landscape, the farthest first.

#include "demo-service/Painter/Terrain.h"

namespace quorvane::painter {

namespace {

using Subject = Scene::Subject;

class Builder
{
  public:
    explicit Builder(const Scene &scene)
        : m_scene(scene)
    {
    }

    Builder &add(std::unique_ptr<Layer> (*make)(const Scene &, const Place &), float base, float height, float scale,
                 float haze)
    {
        m_layers.push_back(make(
            m_scene, {base, height, scale, haze, m_scene.seed + 101U * (1U + static_cast<uint32_t>(m_layers.size()))}));
        return *this;
    }

    /// Rows of trees from the far base to the near one, growing and clearing as they come.
    Builder &woods(float far, float near, int rows, float haze)
    {
        for (int row = 0; row < rows; ++row) {
            const float t = rows == 1 ? 0 : static_cast<float>(row) / static_cast<float>(rows - 1);
            const float base = mix(far, near, std::pow(t, 1.4F));
            const float scale = 1 / mix(0.024F, 0.024F + 0.27F * (near - far), std::pow(t, 1.3F));
            add(trees, base, 0.06F + 0.35F * (near - far), scale, mix(haze, 0.02F, std::pow(t, 0.7F)));
        }
        return *this;
    }

    Layers take() { return std::move(m_layers); }

  private:
    const Scene &m_scene;
    Layers m_layers;
};

} // namespace

Layers layersOf(const Scene &scene)
{
    const float h = scene.horizon;
    const float more = scene.fog ? 0.18F : 0.0F;
    Builder land(scene);
    switch (scene.subject) {
    case Subject::Mountains:
        land.add(mountains, h + 0.02F, 0.46F, 1.5F, 0.66F + more * 0.5F)
            .add(mountains, h + 0.08F, 0.36F, 2.0F, 0.4F + more)
            .add(mountains, h + 0.17F, 0.28F, 2.4F, 0.18F + more);
        land.woods(h + 0.14F, h + 0.42F, 7, 0.2F + more);
        break;
    case Subject::Lake:
        land.add(mountains, h, 0.46F, 1.4F, 0.6F + more * 0.5F)
            .add(mountains, h, 0.3F, 1.9F, 0.36F + more)
            .add(mountains, h, 0.16F, 2.6F, 0.18F + more);
        land.woods(h - 0.012F, h + 0.016F, 3, 0.18F + more);
        break;
    case Subject::Sea:
        land.add(mountains, h, 0.07F, 2.0F, 0.8F);
        break;
    case Subject::Islands:
        land.add(island, h, 0.13F, 1.5F, 0.6F)
            .add(island, h + 0.004F, 0.16F, 1.1F, 0.34F)
            .add(island, h + 0.012F, 0.14F, 0.8F, 0.1F);
        break;
    case Subject::Forest:
        land.add(mountains, h + 0.06F, 0.42F, 1.5F, 0.66F + more * 0.5F);
        land.woods(h + 0.04F, h + 0.5F, scene.autumn || scene.tropical ? 20 : 15, 0.52F + more);
        break;
    case Subject::Desert:
        land.add(mountains, h + 0.01F, 0.13F, 1.8F, 0.72F)
            .add(dunes, h + 0.05F, 0.12F, 1.6F, 0.5F)
            .add(dunes, h + 0.14F, 0.19F, 1.2F, 0.28F)
            .add(dunes, h + 0.28F, 0.27F, 0.9F, 0.12F)
            .add(dunes, h + 0.48F, 0.34F, 0.7F, 0.02F);
        break;
    case Subject::City:
        land.add(houses, h, 0.66F, 12, 0.55F).add(houses, h, 0.55F, 9, 0.3F).add(houses, h, 0.36F, 6.5F, 0.08F);
        break;
    case Subject::Meadow:
        land.add(mountains, h + 0.02F, 0.34F, 1.6F, 0.64F + more * 0.5F);
        land.woods(h + 0.0F, h + 0.05F, 3, 0.5F + more);
        land.add(hills, h + 0.08F, 0.07F, 1.4F, 0.26F + more);
        land.woods(h + 0.1F, h + 0.11F, 2, 0.2F + more);
        land.add(hills, h + 0.17F, 0.11F, 1.1F, 0.1F + more * 0.6F).add(hills, h + 0.3F, 0.14F, 0.8F, 0.0F);
        break;
    case Subject::Space:
        break;
    }
    return land.take();
}

} // namespace quorvane::painter
