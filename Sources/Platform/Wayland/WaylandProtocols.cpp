// The tables that wayland-scanner writes are C; declared before they are defined, they are C++ just as well.

#include <wayland-background.h>

#include <wayland-background-tables.h>
