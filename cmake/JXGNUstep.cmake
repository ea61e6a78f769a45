# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Builds Objective-C++ programs on Linux with Foundation from GNUstep. Clang compiles their
# Objective-C++ sources, the compiler of the project the others. Both use the same C++ library, and
# all objects are linked into one program.
#
# Sets JX_GNUSTEP_FOUND, JX_GNUSTEP_LIBRARIES and JX_BLOCKS_RUNTIME, and defines
# jx_gnustep_program(). Without GNUstep, a skipped test names the packages.
option(JX_BUILD_APPLE_ON_GNUSTEP "Test the sources for Apple systems with GNUstep, if installed" ON)
set(JX_GNUSTEP_FOUND OFF)
if(NOT JX_BUILD_APPLE_ON_GNUSTEP OR APPLE)
  return()
endif()

find_program(JX_CLANGXX clang++)
find_program(JX_CLANG clang)
find_path(JX_GNUSTEP_HEADERS Foundation/NSUserDefaults.h PATH_SUFFIXES GNUstep)
find_library(JX_GNUSTEP_BASE gnustep-base)
find_library(JX_BLOCKS_RUNTIME BlocksRuntime)
# Library and headers of the Objective-C run time belong to GCC.
execute_process(COMMAND gcc -print-file-name=include OUTPUT_VARIABLE JX_OBJC_HEADERS
                OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
execute_process(COMMAND gcc -print-file-name=libobjc.so OUTPUT_VARIABLE JX_OBJC_LIBRARY
                OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT JX_CLANGXX OR NOT JX_CLANG OR NOT JX_GNUSTEP_HEADERS OR NOT JX_GNUSTEP_BASE
   OR NOT JX_BLOCKS_RUNTIME OR NOT EXISTS "${JX_OBJC_LIBRARY}")
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  add_test(NAME gnustep.${folder} COMMAND ${CMAKE_COMMAND} -E echo
           "clang or GNUstep is not installed: scripts/packages apple")
  set_tests_properties(gnustep.${folder} PROPERTIES LABELS apple
                       SKIP_REGULAR_EXPRESSION "is not installed")
  return()
endif()
set(JX_GNUSTEP_FOUND ON)
set(JX_GNUSTEP_LIBRARIES ${JX_GNUSTEP_BASE} ${JX_OBJC_LIBRARY})

set(CMAKE_OBJC_COMPILER ${JX_CLANG})
set(CMAKE_OBJCXX_COMPILER ${JX_CLANGXX})
enable_language(OBJC)
enable_language(OBJCXX)
set(CMAKE_OBJC_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})

function(jx_gnustep_program target)
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX OBJCXX_STANDARD 20
                        OBJCXX_EXTENSIONS OFF)
  target_include_directories(${target} SYSTEM PRIVATE ${JX_GNUSTEP_HEADERS})
  target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:-fobjc-runtime=gcc;\
-fobjc-exceptions;-fconstant-string-class=NSConstantString;-idirafter;${JX_OBJC_HEADERS};\
-DGNUSTEP;-DGNUSTEP_BASE_LIBRARY=1;-DGNU_RUNTIME=1;-D_NATIVE_OBJC_EXCEPTIONS>")
endfunction()
