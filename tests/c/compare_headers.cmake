# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Fails if jx/c/jx_events.h and jx/c/events differ from the generated headers.
file(REMOVE_RECURSE ${SCRATCH})
execute_process(COMMAND ${PROGRAM} ${SOURCE_FOLDER} ${SCRATCH} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "jx_c_headers failed: exit status ${result}")
endif()
file(GLOB wanted RELATIVE ${SCRATCH} ${SCRATCH}/jx/c/events/*)
file(GLOB there RELATIVE ${SOURCE_FOLDER} ${SOURCE_FOLDER}/jx/c/events/*)
list(LENGTH wanted count)
set(is_same TRUE)
if(count LESS 29 OR NOT "${wanted}" STREQUAL "${there}")
  set(is_same FALSE)
endif()
foreach(path jx/c/jx_events.h ${wanted})
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SCRATCH}/${path}
                          ${SOURCE_FOLDER}/${path} RESULT_VARIABLE differs)
  if(NOT differs EQUAL 0)
    message("${path} differs")
    set(is_same FALSE)
  endif()
endforeach()
if(NOT is_same)
  message(FATAL_ERROR "jx/c/events is not up to date. Update it with\n"
                      "  cmake --build ${BUILD_FOLDER} --target c_headers")
endif()
