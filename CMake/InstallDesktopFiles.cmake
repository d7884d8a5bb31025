# Run by "cmake --install": writes the desktop entry and the D-Bus service for the prefix of this installation.
# QUORVANE_BINDIR and QUORVANE_DATADIR are relative to it, QUORVANE_DESKTOP_FILES is the folder of the templates.

get_filename_component(prefix "${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
set(QUORVANE_PROGRAM "${prefix}/${QUORVANE_BINDIR}/quorvane")
# Both kinds of file want quotes around what is more than letters.
if(NOT QUORVANE_PROGRAM MATCHES "^[-A-Za-z0-9_./+]+$")
    set(QUORVANE_PROGRAM "\"${QUORVANE_PROGRAM}\"")
endif()

foreach(file IN ITEMS applications/app.quorvane.Quorvane.desktop dbus-1/services/app.quorvane.Quorvane.service)
    get_filename_component(name "${file}" NAME)
    set(target "${prefix}/${QUORVANE_DATADIR}/${file}")
    message(STATUS "Installing: $ENV{DESTDIR}${target}")
    configure_file("${QUORVANE_DESKTOP_FILES}/${name}.in" "$ENV{DESTDIR}${target}" @ONLY)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${target}")
endforeach()
