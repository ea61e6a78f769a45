// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A FAKE of the Network framework for tests on GNUstep: a path monitor that reports the values
// that tests set.
#pragma once

#include <dispatch/dispatch.h>

struct jx_fake_path;
struct jx_fake_monitor;
typedef jx_fake_path* nw_path_t;
typedef jx_fake_monitor* nw_path_monitor_t;
typedef void (^nw_path_monitor_update_handler_t)(nw_path_t path);

typedef enum {
  nw_path_status_invalid = 0,
  nw_path_status_satisfied = 1,
  nw_path_status_unsatisfied = 2,
  nw_path_status_satisfiable = 3,
} nw_path_status_t;

typedef enum {
  nw_interface_type_other = 0,
  nw_interface_type_wifi = 1,
  nw_interface_type_cellular = 2,
  nw_interface_type_wired = 3,
  nw_interface_type_loopback = 4,
} nw_interface_type_t;

nw_path_monitor_t nw_path_monitor_create();
void nw_path_monitor_set_queue(nw_path_monitor_t monitor, dispatch_queue_t queue);
void nw_path_monitor_set_update_handler(nw_path_monitor_t monitor,
                                        nw_path_monitor_update_handler_t handler);
void nw_path_monitor_start(nw_path_monitor_t monitor);
void nw_path_monitor_cancel(nw_path_monitor_t monitor);
void nw_release(void* object);

nw_path_status_t nw_path_get_status(nw_path_t path);
bool nw_path_uses_interface_type(nw_path_t path, nw_interface_type_t type);
