# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Fails if docs/events.md differs from the output of the generator.
execute_process(COMMAND ${PROGRAM} ${SOURCE_FOLDER} OUTPUT_VARIABLE wanted RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "jx_event_catalogue exited with ${result}")
endif()
set(page "")
if(EXISTS ${SOURCE_FOLDER}/docs/events.md)
  file(READ ${SOURCE_FOLDER}/docs/events.md page)
endif()
if(wanted STREQUAL "" OR NOT page STREQUAL wanted)
  message(FATAL_ERROR "docs/events.md is out of date. Regenerate it with\n"
                      "  cmake --build ${BUILD_FOLDER} --target event_catalogue_page")
endif()
