#include "Platform/System/PowerEvents.h"

namespace quorvane {

std::unique_ptr<PowerEvents> makePowerEvents()
{
    return nullptr;
}

} // namespace quorvane
