# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0

# Fails when docs/events.md is not what the tables of the events say now.
execute_process(COMMAND ${PROGRAM} ${SOURCE_FOLDER} OUTPUT_VARIABLE wanted RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "jx_event_catalogue ended with ${result}")
endif()
set(page "")
if(EXISTS ${SOURCE_FOLDER}/docs/events.md)
  file(READ ${SOURCE_FOLDER}/docs/events.md page)
endif()
if(wanted STREQUAL "" OR NOT page STREQUAL wanted)
  message(FATAL_ERROR "docs/events.md is not up to date. Renew it with\n"
                      "  cmake --build ${BUILD_FOLDER} --target event_catalogue_page")
endif()
