# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT

# What lies where on a system, and the packages. The program needs a folder that its user may write in: "vemora"
# on the path is a launcher that lays one out.
include(GNUInstallDirs)
set(VEMORA_HOMEPAGE "" CACHE STRING "Web page of the project, for package managers and software centres")
set(VEMORA_RELEASE_DATE "2026-11-23" CACHE STRING "Date of this release")

set(VEMORA_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/vemora)
set(VEMORA_DATA_DIR ${CMAKE_INSTALL_DATADIR}/vemora)
set(shipped ${CMAKE_BINARY_DIR}/data/shipped)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)

file(RELATIVE_PATH VEMORA_FROM_BIN_TO_LIBRARY /${CMAKE_INSTALL_BINDIR} /${VEMORA_LIBRARY_DIR})
file(RELATIVE_PATH VEMORA_FROM_BIN_TO_DATA /${CMAKE_INSTALL_BINDIR} /${VEMORA_DATA_DIR})
configure_file(${packaging}/launcher.sh.in ${CMAKE_BINARY_DIR}/packaging/vemora @ONLY)
set(VEMORA_METAINFO_LINKS "")
if(VEMORA_HOMEPAGE)
  set(VEMORA_METAINFO_LINKS
      "  <url type=\"homepage\">${VEMORA_HOMEPAGE}</url>
  <screenshots>
    <screenshot type=\"default\"><image>${VEMORA_HOMEPAGE}/pictures/sheet.png</image></screenshot>
    <screenshot><image>${VEMORA_HOMEPAGE}/pictures/search.png</image></screenshot>
    <screenshot><image>${VEMORA_HOMEPAGE}/pictures/resistance.png</image></screenshot>
  </screenshots>
")
endif()
configure_file(${packaging}/org.vemora.Vemora.metainfo.xml.in
               ${CMAKE_BINARY_DIR}/packaging/org.vemora.Vemora.metainfo.xml @ONLY)

# Debian wants these packed; no time of packing in them, so that the same input gives the same bytes.
find_program(GZIP gzip REQUIRED)
set(packed)
foreach(file docs/man/vemora.1 docs/man/vemora-db.1 packaging/changelog CHANGELOG.md)
  get_filename_component(name ${file} NAME)
  set(name ${name}.gz)
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/packaging/${name}
    COMMAND ${GZIP} -9nc ${CMAKE_SOURCE_DIR}/${file} > ${CMAKE_BINARY_DIR}/packaging/${name}
    DEPENDS ${CMAKE_SOURCE_DIR}/${file}
    VERBATIM)
  list(APPEND packed ${CMAKE_BINARY_DIR}/packaging/${name})
endforeach()
add_custom_target(packed_docs ALL DEPENDS ${packed})

install(TARGETS vemora RUNTIME DESTINATION ${VEMORA_LIBRARY_DIR})
install(TARGETS vemora-db RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${CMAKE_BINARY_DIR}/packaging/vemora DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${shipped}/Vemora.mdb DESTINATION ${VEMORA_DATA_DIR})
install(FILES ${shipped}/LangSvenska.ini ${shipped}/LangEnglish.ini ${shipped}/LangDeutsch.ini
        DESTINATION ${VEMORA_DATA_DIR}/bin)
install(DIRECTORY ${shipped}/pages DESTINATION ${VEMORA_DATA_DIR})
install(FILES ${CMAKE_BINARY_DIR}/packaging/vemora.1.gz ${CMAKE_BINARY_DIR}/packaging/vemora-db.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${packaging}/org.vemora.Vemora.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_BINARY_DIR}/packaging/org.vemora.Vemora.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_SOURCE_DIR}/src/qt/pictures/vemora.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME org.vemora.Vemora.svg)
install(FILES ${packaging}/copyright ${CMAKE_SOURCE_DIR}/data/SOURCES.md
              ${CMAKE_BINARY_DIR}/packaging/changelog.gz ${CMAKE_BINARY_DIR}/packaging/CHANGELOG.md.gz
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/vemora)
install(FILES ${packaging}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME vemora)

# The program's folder as an archive: unpacked anywhere, it runs.
set(portable Vemora-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
add_custom_target(
  portable
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${portable}
  COMMAND
    ${CMAKE_COMMAND} -DFOLDER=${CMAKE_BINARY_DIR}/${portable} -DPROGRAM=$<TARGET_FILE:vemora>
    -DLANGUAGES=${shipped} -DPAGES=${shipped}/pages -DDATABASE=${shipped}/Vemora.mdb
    -P ${CMAKE_SOURCE_DIR}/cmake/ProgramFolder.cmake
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/LICENSE ${portable}
  COMMAND ${CMAKE_COMMAND} -E tar czf ${portable}.tar.gz ${portable}
  WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
  DEPENDS program_folder
  VERBATIM)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vemora)
set(VEMORA_CONTACT "The Vemora developers <vemora@localhost>" CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGE_CONTACT ${VEMORA_CONTACT})
set(CPACK_PACKAGE_HOMEPAGE_URL "${VEMORA_HOMEPAGE}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "chemical resistance of materials")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Vemora tells which material stands up to which chemical, at which
concentration and temperature: metals, plastics, seals and other materials,
from named public sources, with verdicts of one's own, in Swedish, English
and German, offline.

The data is a first orientation and doesn't replace a test.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, xdg-utils")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
