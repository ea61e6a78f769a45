// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's Network framework, as far as the library uses it. Its objects are Objective-C objects,
// which automatic reference counting releases.
#pragma once

#import <Foundation/Foundation.h>
#include <dispatch/dispatch.h>

@protocol OS_nw_path <NSObject>
@end
typedef NSObject<OS_nw_path>* nw_path_t;
@protocol OS_nw_path_monitor <NSObject>
@end
typedef NSObject<OS_nw_path_monitor>* nw_path_monitor_t;
typedef void (^nw_path_monitor_update_handler_t)(nw_path_t _Nonnull path);

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

FOUNDATION_EXPORT nw_path_monitor_t _Nonnull nw_path_monitor_create(void) NS_RETURNS_RETAINED;
FOUNDATION_EXPORT void nw_path_monitor_set_queue(nw_path_monitor_t _Nonnull monitor,
                                                 dispatch_queue_t _Nonnull queue);
FOUNDATION_EXPORT void nw_path_monitor_set_update_handler(
    nw_path_monitor_t _Nonnull monitor, nw_path_monitor_update_handler_t _Nonnull handler);
FOUNDATION_EXPORT void nw_path_monitor_start(nw_path_monitor_t _Nonnull monitor);
FOUNDATION_EXPORT void nw_path_monitor_cancel(nw_path_monitor_t _Nonnull monitor);
FOUNDATION_EXPORT void nw_release(id _Nonnull object) JX_MANUAL_COUNTING_ONLY;

FOUNDATION_EXPORT nw_path_status_t nw_path_get_status(nw_path_t _Nonnull path);
FOUNDATION_EXPORT bool nw_path_uses_interface_type(nw_path_t _Nonnull path,
                                                   nw_interface_type_t type);
