# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Builds the library for tvOS: jx/platform/apple in Objective-C++ with manual reference counting,
# and its frameworks.
option(JX_APPLE_ADVERTISING "Link AdSupport and AppTrackingTransparency as weak frameworks" ON)

if(NOT CMAKE_SYSTEM_NAME STREQUAL "tvOS")
  message(FATAL_ERROR "CMAKE_SYSTEM_NAME must be tvOS on Apple systems: "
                      "-DCMAKE_SYSTEM_NAME=tvOS -DCMAKE_OSX_DEPLOYMENT_TARGET=12.0")
endif()
enable_language(OBJCXX)
file(GLOB apple_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/platform/apple/*.mm)
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
