// A picture in the order of a painter's work: read the prompt, paint sky and land from far to near, the water that
// mirrors them, what stands in the foreground, the weather; then let it glow and develop it for the screen.

#include "demo-service/Painter/Painter.h"

#include "demo-service/Painter/Finish.h"
#include "demo-service/Painter/Foreground.h"
#include "demo-service/Painter/Layer.h"
#include "demo-service/Painter/Space.h"
#include "demo-service/Painter/Water.h"

namespace quorvane {

QImage paintPicture(const QString &prompt, QSize size)
{
    using namespace painter;
    const Scene scene = sceneOf(prompt);
    Canvas canvas(size.expandedTo(QSize(1, 1)));
    if (scene.subject == Scene::Subject::Space) {
        paintSpace(canvas, scene);
    } else {
        paintLandscape(canvas, scene, layersOf(scene), hasWater(scene) ? scene.horizon : 1.0F);
        if (hasWater(scene)) {
            paintWater(canvas, scene);
        }
        paintForeground(canvas, scene);
        paintWeather(canvas, scene);
    }
    addGlow(canvas, scene);
    return develop(canvas, scene);
}

} // namespace quorvane
