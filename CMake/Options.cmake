# Everything a preset may switch, and what each switch does to every target.

option(QUORVANE_TESTS "Build the tests, the demonstration service and the fuzz targets" ON)
option(QUORVANE_BENCHMARKS "Build the benchmarks" OFF)
option(QUORVANE_FUZZ "Build the fuzz targets with libFuzzer instead of the replaying main (needs clang)" OFF)
option(QUORVANE_LINT "Run clang-tidy and qmllint as tests (minutes)" OFF)
option(QUORVANE_COVERAGE "Instrument for gcov" OFF)
set(QUORVANE_SANITIZERS "" CACHE STRING "Value for -fsanitize=, for example address,undefined")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# Folders with QObjects of their own turn AUTOMOC on for their target; it costs a compilation each.

add_compile_options(-Wall -Wextra -Wpedantic)
# Qt's implicit conversions hide copies and wrong encodings; every conversion in this project is written out.
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
                        QT_DISABLE_DEPRECATED_BEFORE=0x060000)

if(QUORVANE_SANITIZERS)
    add_compile_options(-fsanitize=${QUORVANE_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${QUORVANE_SANITIZERS})
endif()
if(QUORVANE_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(QUORVANE_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

find_program(QUORVANE_CCACHE ccache)
if(QUORVANE_CCACHE)
    # Paths below the source folder count as relative, so that another checkout finds what this one compiled.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1
                                    "${QUORVANE_CCACHE}")
endif()
