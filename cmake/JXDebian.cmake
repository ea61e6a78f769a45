# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Debian packages: cmake --workflow --preset debian creates them in build/debian. As usual in
# Debian, the name of the runtime package contains the soname of the shared library, so that
# incompatible versions can be installed side by side.
option(JX_DEBIAN_PACKAGES "Create Debian packages with cpack" OFF)
if(NOT JX_DEBIAN_PACKAGES)
  return()
endif()

set(version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(runtime libjxserverside${version})
set(CPACK_DEBIAN_JXSERVERSIDE_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_JXSERVERSIDE_DEVELOPMENT_PACKAGE_NAME libjxserverside-dev)
set(CPACK_DEBIAN_JXSERVERSIDE_TOOLS_PACKAGE_NAME jxserverside-tools)
set(CPACK_COMPONENTS_ALL jxserverside_runtime jxserverside_development jxserverside_tools)

set(CPACK_DEBIAN_JXSERVERSIDE_RUNTIME_DESCRIPTION "Event-collection SDK for TV \
applications, shared library. Each event is stored on disk before the call returns and is sent \
over HTTPS when the network is available.")
set(CPACK_DEBIAN_JXSERVERSIDE_DEVELOPMENT_DESCRIPTION "Headers, the static library, the \
privacy manifest for Apple systems, and the CMake and pkg-config files.")
set(CPACK_DEBIAN_JXSERVERSIDE_TOOLS_DESCRIPTION "The program jx. It replays recorded sessions and \
runs a local collector with a web UI.")

set(CPACK_DEBIAN_JXSERVERSIDE_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_JXSERVERSIDE_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_JXSERVERSIDE_TOOLS_PACKAGE_SECTION devel)
# Linking the static library requires the development package of libcurl.
set(CPACK_DEBIAN_JXSERVERSIDE_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime} (= ${PROJECT_VERSION}), libcurl4-openssl-dev | libcurl-dev")
set(CPACK_DEBIAN_JXSERVERSIDE_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_JXSERVERSIDE_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY =)

foreach(part RUNTIME DEVELOPMENT TOOLS)
  string(TOLOWER jxserverside_${part} component)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright COMPONENT ${component}
          DESTINATION share/doc/${CPACK_DEBIAN_JXSERVERSIDE_${part}_PACKAGE_NAME})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME jxserverside)
set(CPACK_PACKAGE_VENDOR "The JXServerSide authors")
set(CPACK_PACKAGE_CONTACT "The JXServerSide authors <authors@jxserverside.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
