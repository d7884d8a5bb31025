# The libraries that stand in for what the platform would give.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network DBus LinguistTools Qml Quick QuickControls2 Svg Widgets)
find_package(QCoro6 0.8 REQUIRED COMPONENTS Core Network)
find_package(Qt6Keychain REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(xcb REQUIRED IMPORTED_TARGET xcb xcb-randr)
pkg_check_modules(wayland REQUIRED IMPORTED_TARGET wayland-client)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
pkg_check_modules(gio REQUIRED IMPORTED_TARGET gio-2.0)
pkg_check_modules(spng REQUIRED IMPORTED_TARGET spng)
find_package(Threads REQUIRED)

find_path(VULKAN_HEADERS vulkan/vulkan.h REQUIRED) # The library itself is looked for where the program runs.

if(QUORVANE_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    find_package(GTest REQUIRED)
    find_package(ZLIB REQUIRED)
endif()
if(QUORVANE_BENCHMARKS)
    find_package(benchmark REQUIRED)
endif()
include(CMake/OnnxRuntime.cmake)
