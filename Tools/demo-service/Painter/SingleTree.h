#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

namespace quorvane::painter {

enum class TreeKind { Conifer, Palm, Broadleaf };

/// Where a tree stands and which one of its kind it is.
struct Tree
{
    float x;
    float foot;
    float height;
    uint32_t seed;
};

/// Paints a tree that is close enough to show its branches.
void paintTree(Canvas &canvas, const Scene &scene, const Tree &tree, TreeKind kind);

} // namespace quorvane::painter
