// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_H
#define JX_C_JX_H

/// @file
/// The complete C interface of the library, for C programs and for languages that call C. C99; may
/// be included from C++. docs/c.md is the guide.
///
/// Ownership. The caller owns every handle that a `..._create` function returns and frees it once
/// with the `..._free` function of its type. No other function takes ownership. Adding an item to
/// an event, or setting the product of an item, copies it at that moment. `jx_execute` leaves the
/// event with the caller, who may change it and execute it again. Input strings are copied. Output
/// strings are written to a buffer of the caller. Pointers that stay valid longer are documented at
/// the function that returns them.
///
/// Handles are tokens, not addresses. They are looked up and never dereferenced, and no token is
/// reused within a process. Null, a freed handle, a handle of another type and any other pointer
/// are therefore reported by a status, in every build, without touching memory. Freeing null does
/// nothing.
///
/// Errors. Every function that can fail returns a `jx_status` and changes nothing unless it returns
/// JX_OK. `jx_error_detail()` describes the error, which is also logged at level 3, except for
/// expected results such as JX_ERROR_NOT_SET. No exception leaves the library, however it is built.
///
/// Strings are NUL-terminated. Null differs from "": a field that is null is omitted from the
/// event. As in C++, bytes that are not UTF-8 are accepted and are written to the event as U+FFFD;
/// only a string that is itself JSON must be UTF-8.
///
/// Threads. Every function may be called on any thread; a `jx_object` belongs to one thread at a
/// time. A handle may be freed on any thread, even while another thread uses it: that call
/// completes normally. Each callback type documents the thread that calls it; no lock of the
/// library is held during the call.

#include "jx/c/jx_catalogue.h"
#include "jx/c/jx_configuration.h"
#include "jx/c/jx_delivery.h"
#include "jx/c/jx_events.h"
#include "jx/c/jx_notifications.h"
#include "jx/c/jx_object.h"
#include "jx/c/jx_server_side.h"
#include "jx/c/jx_status.h"

#endif
