#pragma once

#include "demo-service/Painter/Scene.h"

namespace quorvane::painter {

/// Sets in scene what words of the prompt name; leaves the rest as it is.
void applyWords(const QString &prompt, Scene &scene);

} // namespace quorvane::painter
