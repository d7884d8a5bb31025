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
        land.add(mountains, h + 0.02F, 0.42F, 1.5F, 0.74F + more * 0.5F)
            .add(mountains, h + 0.08F, 0.36F, 2.0F, 0.5F + more)
            .add(mountains, h + 0.17F, 0.3F, 2.4F, 0.26F + more)
            .add(trees, h + 0.2F, 0.12F, 34, 0.22F + more)
            .add(trees, h + 0.29F, 0.14F, 22, 0.1F + more)
            .add(trees, h + 0.42F, 0.16F, 12, 0.02F);
        break;
    case Subject::Lake:
        land.add(mountains, h, 0.4F, 1.4F, 0.72F + more * 0.5F)
            .add(mountains, h, 0.3F, 1.9F, 0.46F + more)
            .add(mountains, h, 0.17F, 2.6F, 0.24F + more)
            .add(trees, h + 0.012F, 0.06F, 42, 0.14F + more);
        break;
    case Subject::Sea:
        land.add(mountains, h, 0.07F, 2.0F, 0.8F);
        break;
    case Subject::Islands:
        land.add(mountains, h, 0.13F, 1.6F, 0.66F).add(trees, h + 0.004F, 0.12F, 60, 0.3F);
        break;
    case Subject::Forest:
        land.add(mountains, h + 0.06F, 0.36F, 1.5F, 0.72F + more * 0.5F)
            .add(trees, h + 0.06F, 0.16F, 30, 0.5F + more)
            .add(trees, h + 0.13F, 0.15F, 22, 0.36F + more)
            .add(trees, h + 0.21F, 0.15F, 16, 0.22F + more)
            .add(trees, h + 0.31F, 0.15F, 11, 0.11F + more * 0.6F)
            .add(trees, h + 0.45F, 0.15F, 7, 0.02F);
        break;
    case Subject::Desert:
        land.add(mountains, h + 0.01F, 0.13F, 1.8F, 0.78F)
            .add(dunes, h + 0.05F, 0.12F, 1.6F, 0.55F)
            .add(dunes, h + 0.14F, 0.19F, 1.2F, 0.32F)
            .add(dunes, h + 0.28F, 0.27F, 0.9F, 0.14F)
            .add(dunes, h + 0.48F, 0.34F, 0.7F, 0.02F);
        break;
    case Subject::City:
        land.add(houses, h, 0.62F, 12, 0.62F).add(houses, h, 0.52F, 9, 0.36F).add(houses, h, 0.38F, 6.5F, 0.12F);
        break;
    case Subject::Meadow:
        land.add(mountains, h + 0.02F, 0.3F, 1.6F, 0.72F + more * 0.5F)
            .add(trees, h + 0.03F, 0.08F, 46, 0.45F + more)
            .add(hills, h + 0.07F, 0.07F, 1.4F, 0.3F + more)
            .add(trees, h + 0.09F, 0.03F, 30, 0.2F + more)
            .add(hills, h + 0.16F, 0.11F, 1.1F, 0.12F + more * 0.6F)
            .add(hills, h + 0.3F, 0.14F, 0.8F, 0.0F);
        break;
    case Subject::Space:
        break;
    }
    return land.take();
}

} // namespace quorvane::painter
