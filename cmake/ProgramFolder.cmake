# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT

# Lays out the program's folder as it is delivered: FOLDER gets the program, the language files, the pages and
# the database. A database or an active language file that is there already is the user's and stays.
file(MAKE_DIRECTORY "${FOLDER}/bin")
get_filename_component(program "${PROGRAM}" NAME)
file(COPY_FILE "${PROGRAM}" "${FOLDER}/${program}" ONLY_IF_DIFFERENT)
file(GLOB language_files "${LANGUAGES}/Lang*.ini")
foreach(file IN LISTS language_files)
  get_filename_component(name "${file}" NAME)
  file(COPY_FILE "${file}" "${FOLDER}/bin/${name}" ONLY_IF_DIFFERENT)
endforeach()
file(GLOB_RECURSE pages RELATIVE "${PAGES}" "${PAGES}/*")
foreach(page IN LISTS pages)
  get_filename_component(folder "${FOLDER}/pages/${page}" DIRECTORY)
  file(MAKE_DIRECTORY "${folder}")
  file(COPY_FILE "${PAGES}/${page}" "${FOLDER}/pages/${page}" ONLY_IF_DIFFERENT)
endforeach()
if(NOT EXISTS "${FOLDER}/Vemora.mdb")
  file(COPY_FILE "${DATABASE}" "${FOLDER}/Vemora.mdb")
endif()
