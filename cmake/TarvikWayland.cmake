# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT

# tarvik_wayland_protocols(TARGET FILE.xml...): what wayland-scanner makes of protocol descriptions, as a static library.
function(tarvik_wayland_protocols target)
  foreach(description IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH description)
    cmake_path(GET description STEM name)
    set(header ${CMAKE_CURRENT_BINARY_DIR}/${target}/${name}-client-protocol.h)
    set(code ${CMAKE_CURRENT_BINARY_DIR}/${target}/${name}-protocol.c)
    add_custom_command(OUTPUT ${header}
      COMMAND ${WAYLAND_SCANNER} client-header ${description} ${header}
      DEPENDS ${description})
    add_custom_command(OUTPUT ${code}
      COMMAND ${WAYLAND_SCANNER} private-code ${description} ${code}
      DEPENDS ${description})
    list(APPEND sources ${header} ${code})
  endforeach()
  add_library(${target} STATIC ${sources})
  target_include_directories(${target} SYSTEM PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/${target})
  target_link_libraries(${target} PUBLIC PkgConfig::WAYLAND_CLIENT)
endfunction()
