# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
#
# Writes the unit TARVIK_LOGIN_UNIT of the user's systemd, which starts TARVIK_EXECUTABLE at login. There is none where that
# path would have to be quoted: systemd looks into no such directory for units.
if(TARVIK_EXECUTABLE MATCHES "^[A-Za-z0-9/._+-]+$")
  configure_file(${CMAKE_CURRENT_LIST_DIR}/tarvik-at-login.service.in "${TARVIK_LOGIN_UNIT}" @ONLY)
else()
  file(REMOVE "${TARVIK_LOGIN_UNIT}")
endif()
