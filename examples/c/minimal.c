// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx.h"

// minimal [HOST [CA_FILE [STORAGE_FOLDER]]]
int main(int argc, char** argv) {
  jx_configuration configuration;
  jx_server_side* library = NULL;
  jx_object* event = NULL;
  jx_status delivered;

  jx_configuration_init(&configuration, sizeof configuration);
  if (argc > 1) configuration.collection_host = argv[1];
  if (argc > 2) configuration.ca_file = argv[2];
  if (argc > 3) configuration.storage_folder = argv[3];
  jx_configure(&configuration);
  jx_server_side_create(1, "source-key", JX_BEHAVIOUR_DEFAULT, NULL, &library);

  JXCustomEvent_create("quiz_answered", &event);
  JXCustomEvent_setPageName(event, "quiz");
  jx_object_add_parameter(event, "answer", "B");
  jx_execute(library, event);  // stored before this returns; survives a killed process
  jx_object_free(event);

  delivered = jx_flush(2000);
  jx_server_side_free(library);
  return delivered == JX_OK ? 0 : 1;
}
