# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
#
# A language is a file translations/tarvik_LANGUAGE.ts, see docs/translating.md; it is compiled into the bundle, where both
# programs find it.
find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)

set(translation_directory ${PROJECT_BINARY_DIR}/${TARVIK_BUNDLE_DIR}/Contents/Resources/translations)
file(GLOB translation_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/tarvik_*.ts)
set(compiled_translations "")

# tarvik_release_translation(TS QM): compiles one. A text that stays as it is in the sources needs no place in it.
function(tarvik_release_translation ts qm)
  get_filename_component(directory ${qm} DIRECTORY)
  add_custom_command(OUTPUT ${qm}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${directory}
    COMMAND Qt6::lrelease -silent -removeidentical ${ts} -qm ${qm}
    DEPENDS ${ts}
    VERBATIM)
endfunction()

foreach(ts IN LISTS translation_files)
  get_filename_component(name ${ts} NAME_WE)
  tarvik_release_translation(${ts} ${translation_directory}/${name}.qm)
  list(APPEND compiled_translations ${translation_directory}/${name}.qm)
endforeach()
add_custom_target(tarvik-translations ALL DEPENDS ${compiled_translations})
install(FILES ${compiled_translations} DESTINATION ${TARVIK_BUNDLE_DIR}/Contents/Resources/translations)
