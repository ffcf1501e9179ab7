# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
#
# Writes the desktop entry TARVIK_DESKTOP_ENTRY, which starts TARVIK_EXECUTABLE, by the Desktop Entry Specification: quoted
# where needed, what is special inside the quotes escaped, and the escapes escaped again as in every string.
set(TARVIK_EXEC "${TARVIK_EXECUTABLE}")
if(NOT TARVIK_EXEC MATCHES "^[A-Za-z0-9/._+-]+$")
  string(REGEX REPLACE "([\"`$])" "\\\\\\\\\\1" TARVIK_EXEC "${TARVIK_EXEC}")
  string(REPLACE "%" "%%" TARVIK_EXEC "${TARVIK_EXEC}")
  set(TARVIK_EXEC "\"${TARVIK_EXEC}\"")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/com.morvanta.Tarvik.desktop.in "${TARVIK_DESKTOP_ENTRY}" @ONLY)
