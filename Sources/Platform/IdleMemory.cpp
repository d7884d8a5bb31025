#include "Platform/IdleMemory.h"

#include <malloc.h>

namespace quorvane {

void returnIdleMemory()
{
    ::malloc_trim(0);
}

} // namespace quorvane
