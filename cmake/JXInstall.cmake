# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# `cmake --install` has three components: jxserverside_runtime (the shared library),
# jxserverside_development (the public headers, the static library, the privacy manifest for Apple
# systems, and the CMake and pkg-config files) and jxserverside_tools (the program jx). With
# add_subdirectory, nothing of this project is installed unless JX_INSTALL is on.
option(JX_INSTALL "Generate install rules" ${PROJECT_IS_TOP_LEVEL})
if(NOT JX_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
set(development COMPONENT jxserverside_development)

# Internal headers are not installed; scripts/checks/headers reads the same list.
set(internal_list ${PROJECT_SOURCE_DIR}/packaging/internal-headers.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${internal_list})
file(STRINGS ${internal_list} internal_headers REGEX "^[^#]")
file(GLOB_RECURSE public_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
     ${PROJECT_SOURCE_DIR}/jx/*.h)
foreach(entry ${internal_headers})
  string(REPLACE "." "\\." pattern "${entry}")
  if(NOT entry MATCHES "/$")
    string(APPEND pattern "$")
  endif()
  list(FILTER public_headers EXCLUDE REGEX "^${pattern}")
endforeach()
if(JX_OBJC)
  install(FILES ${PROJECT_SOURCE_DIR}/jx/objc/module.modulemap ${development}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/jx/objc)
else()
  list(FILTER public_headers EXCLUDE REGEX "^jx/objc/")
endif()
foreach(header ${public_headers})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/${header} ${development}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/jx/c/module.modulemap ${development}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/jx/c)
# Applications for Apple systems include the privacy manifest (docs/tvos.md).
install(FILES ${PROJECT_SOURCE_DIR}/packaging/apple/PrivacyInfo.xcprivacy ${development}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/jxserverside)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/NOTICE ${development}
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Each library has its own targets file, so that either can be installed without the other.
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/jxserverside)
foreach(kind ${JX_LIBRARIES})
  install(TARGETS jxserverside_${kind} EXPORT jxserverside_${kind}
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          ARCHIVE ${development}
          LIBRARY COMPONENT jxserverside_runtime NAMELINK_COMPONENT jxserverside_development)
  install(EXPORT jxserverside_${kind} NAMESPACE jx:: FILE jxserverside_${kind}Targets.cmake
          ${development} DESTINATION ${config_folder})
endforeach()
configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/packaging/jxserversideConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/jxserversideConfig.cmake
    INSTALL_DESTINATION ${config_folder} NO_SET_AND_CHECK_MACRO)
# Until 1.0 a new minor version may be incompatible.
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/jxserversideConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/jxserversideConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/jxserversideConfigVersion.cmake
        ${development} DESTINATION ${config_folder})

# Consumers of a static library must link its dependencies; a shared library links them itself. If
# both are installed, `pkg-config --static` lists the dependencies.
set(needed "${CMAKE_THREAD_LIBS_INIT}")
if(CMAKE_CXX_IMPLICIT_LINK_LIBRARIES MATCHES "(^|;)(stdc\\+\\+|c\\+\\+)(;|$)")
  string(APPEND needed " -l${CMAKE_MATCH_2}")  # for C applications
endif()
foreach(library IN LISTS CMAKE_DL_LIBS)
  string(APPEND needed " -l${library}")
endforeach()
if("shared" IN_LIST JX_LIBRARIES)
  set(JX_PC_REQUIRES_PRIVATE libcurl)
  set(JX_PC_LIBS_PRIVATE "${needed}")
else()
  set(JX_PC_REQUIRES libcurl)
  set(JX_PC_LIBS "${needed}")
endif()
# The prefix is relative to the file, so that `cmake --install --prefix` and moving the installed
# tree work.
file(RELATIVE_PATH JX_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" JX_PC_PREFIX "${JX_PC_PREFIX}")
configure_file(${PROJECT_SOURCE_DIR}/packaging/jxserverside.pc.in
               ${CMAKE_CURRENT_BINARY_DIR}/jxserverside.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/jxserverside.pc ${development}
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
