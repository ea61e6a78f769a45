# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Builds the library for tvOS: jx/platform/apple and jx/objc in Objective-C with manual reference
# counting, and its frameworks.
option(JX_OBJC "Build and install the Objective-C interface, for Objective-C and Swift" ON)
option(JX_APPLE_ADVERTISING "Link AdSupport and AppTrackingTransparency as weak frameworks" ON)

if(NOT CMAKE_SYSTEM_NAME STREQUAL "tvOS")
  message(FATAL_ERROR "CMAKE_SYSTEM_NAME must be tvOS on Apple systems: "
                      "-DCMAKE_SYSTEM_NAME=tvOS -DCMAKE_OSX_DEPLOYMENT_TARGET=12.0")
endif()
enable_language(OBJC OBJCXX)
file(GLOB apple_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/platform/apple/*.mm)
if(JX_OBJC)
  file(GLOB_RECURSE objc_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/objc/*.m
       ${CMAKE_CURRENT_SOURCE_DIR}/objc/*.mm)
  list(APPEND apple_sources ${objc_sources})
endif()
list(APPEND JX_SOURCES ${apple_sources})
set_source_files_properties(${apple_sources} PROPERTIES COMPILE_OPTIONS -fno-objc-arc)

# AppTrackingTransparency was introduced with tvOS 14. Weak linking allows older systems to load the
# application.
function(jx_link_apple_frameworks target)
  target_link_libraries(${target} PRIVATE "-framework Foundation" "-framework UIKit"
                        "-framework Network")
  if(JX_APPLE_ADVERTISING)
    target_link_libraries(${target} PRIVATE "-weak_framework AdSupport"
                          "-weak_framework AppTrackingTransparency")
  endif()
endfunction()
