# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT

# tarvik_test(NAME [BUS|DESKTOP|DESKTOP_OPTIONS OPTION...] [SOURCES FILE...] LIBRARIES TARGET...): one QtTest program from
# NAME.cpp. BUS gives it a private session bus of its own, DESKTOP a whole virtual desktop, DESKTOP_OPTIONS one with options.
function(tarvik_test name)
  cmake_parse_arguments(TEST "BUS;DESKTOP" "" "SOURCES;LIBRARIES;DESKTOP_OPTIONS" ${ARGN})
  add_executable(${name} ${name}.cpp ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${TEST_LIBRARIES} tarvik-test-support)
  target_precompile_headers(${name} REUSE_FROM tarvik-test-support)
  set(command $<TARGET_FILE:${name}>)
  if(TEST_BUS)
    list(PREPEND command dbus-run-session --)
  endif()
  set(label unit)
  if(TEST_DESKTOP OR TEST_DESKTOP_OPTIONS)
    list(PREPEND command ${PROJECT_SOURCE_DIR}/scripts/desktop ${TEST_DESKTOP_OPTIONS} --)
    set(label desktop)
  endif()
  add_test(NAME ${name} COMMAND ${command})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_FORCE_STDERR_LOGGING=1;QT_LOGGING_RULES=;LC_ALL=C.UTF-8"
    FAIL_REGULAR_EXPRESSION "SKIP   : "
    LABELS ${label})
endfunction()
