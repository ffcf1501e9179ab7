# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
#
# One interface target carries the language level, the warnings and the Qt strictness of all our own code.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)

# QList calls its own functions on an object of a class that it is not of. Where the compiler tells classes apart, it may leave
# out what they have written: with GCC 14 and -Os, a list made of an initializer list was empty.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-strict-aliasing>)

add_library(tarvik-options INTERFACE)
target_include_directories(tarvik-options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(tarvik-options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override> -Wzero-as-null-pointer-constant
  $<$<BOOL:${TARVIK_WARNINGS_AS_ERRORS}>:-Werror>
  # What no program uses is not linked: every page counts in a program that is always there.
  -ffunction-sections -fdata-sections
  $<$<BOOL:${TARVIK_SANITIZE}>:-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer>)
target_link_options(tarvik-options INTERFACE
  LINKER:--gc-sections
  $<$<BOOL:${TARVIK_SANITIZE}>:-fsanitize=address,undefined>)
target_compile_definitions(tarvik-options INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400
  # What newer versions advise against may be all that the oldest one has.
  QT_WARN_DEPRECATED_UP_TO=0x060400)

# What most sources include, compiled once: tarvik-core does it for all that is compiled as it is. Every source includes what
# it needs all the same: tests/check_hidden_includes.py sees to it, and the sanitizers' preset compiles without this.
set(TARVIK_PRECOMPILED_HEADERS
  <QCoreApplication> <QDateTime> <QDir> <QFile> <QHash> <QJsonArray> <QJsonDocument> <QJsonObject> <QLoggingCategory> <QMap>
  <QObject> <QPointer> <QProcess> <QRegularExpression> <QSet> <QSocketNotifier> <QStringList> <QTimer> <QUrl> <QUuid> <QVariant>
  <algorithm> <array> <chrono> <functional> <map> <memory> <optional> <ranges> <string> <string_view> <utility> <variant> <vector>)

# tarvik_link_into_path(FILE): a relative link to this installed file of the bundle where shells look for commands.
function(tarvik_link_into_path file)
  include(GNUInstallDirs)
  file(RELATIVE_PATH target /${CMAKE_INSTALL_BINDIR} /${file})
  get_filename_component(name ${file} NAME)
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/link)
  file(CREATE_LINK ${target} ${CMAKE_CURRENT_BINARY_DIR}/link/${name} SYMBOLIC)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/link/${name} DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# tarvik_library(FOLDER SOURCES...): the static library of one folder of src/.
function(tarvik_library folder)
  string(REPLACE "/" "-" name "tarvik-${folder}")
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC tarvik-base Qt6::Core)
  if(folder STREQUAL "core")
    target_precompile_headers(${name} PRIVATE ${TARVIK_PRECOMPILED_HEADERS})
  else()
    target_precompile_headers(${name} REUSE_FROM tarvik-core)
  endif()
endfunction()
