# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
#
# Writes what names the path of the program TARVIK_HELPER below the directory TARVIK_HELPER_FILES: the systemd unit and the
# bus's service file. Neither is written where that path would have to be quoted: each has rules of its own for that, and the
# system looks into no such directory for services.
set(unit ${TARVIK_HELPER_FILES}/lib/systemd/system/tarvik-helper.service)
set(bus_service ${TARVIK_HELPER_FILES}/share/dbus-1/system-services/com.morvanta.Tarvik.helper.service)
if(TARVIK_HELPER MATCHES "^[A-Za-z0-9/._+-]+$")
  configure_file(${CMAKE_CURRENT_LIST_DIR}/tarvik-helper.service.in "${unit}" @ONLY)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/com.morvanta.Tarvik.helper.service.in "${bus_service}" @ONLY)
else()
  file(REMOVE "${unit}" "${bus_service}")
endif()
