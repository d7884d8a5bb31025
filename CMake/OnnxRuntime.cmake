# The inference engine: the system's own package where there is one, else what scripts/fetch-onnxruntime assembled.
# Sets onnxruntime_FOUND and the target onnxruntime::onnxruntime. Without either, the build has no local upscaler.

option(QUORVANE_LOCAL_UPSCALER "Build the upscaler that runs on this machine, when ONNX Runtime is there" ON)
set(onnxruntime_FOUND FALSE)

if(QUORVANE_LOCAL_UPSCALER)
    find_package(onnxruntime CONFIG QUIET)
    if(NOT onnxruntime_FOUND)
        execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/fetch-onnxruntime --folder
                        OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(EXISTS ${folder}/lib/libonnxruntime.so.1)
            add_library(onnxruntime::onnxruntime SHARED IMPORTED GLOBAL)
            set_target_properties(onnxruntime::onnxruntime PROPERTIES
                IMPORTED_LOCATION ${folder}/lib/libonnxruntime.so.1
                IMPORTED_SONAME libonnxruntime.so.1
                INTERFACE_INCLUDE_DIRECTORIES ${folder}/include)
            set(onnxruntime_FOUND TRUE)
            # An installed program finds the library it was built with; a distribution's own needs none of this.
            include(GNUInstallDirs)
            set(onnxruntime_INSTALL_FOLDER ${CMAKE_INSTALL_FULL_LIBDIR}/quorvane)
            install(FILES ${folder}/lib/libonnxruntime.so.1 DESTINATION ${CMAKE_INSTALL_LIBDIR}/quorvane)
            install(FILES ${folder}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quorvane
                    RENAME copyright.onnxruntime)
            list(APPEND CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}/quorvane")
        endif()
    endif()
    if(NOT onnxruntime_FOUND)
        message(STATUS "ONNX Runtime not found: no upscaling on this machine (scripts/fetch-onnxruntime assembles it)")
    endif()
endif()
