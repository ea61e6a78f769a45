// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_H
#define JX_C_JX_H

/// @file
/// The whole library for programs written in C, and for languages that call C. C99; C++ may include
/// it too. docs/c.md is the guide.
///
/// Ownership. What a `..._create` gives belongs to the caller, who ends it once with the `..._free`
/// of its type. No other operation takes ownership: an item that is added to an event, and a
/// product that is set into an item, are copied as they stand at that moment, and `jx_execute`
/// leaves the event to the caller, who may change and execute it again. Texts that are handed in
/// are copied. Texts that come out are written into a buffer of the caller's. A pointer that stays
/// valid longer says so.
///
/// Handles are tokens, not addresses: they are looked up and never followed, and none is given
/// twice in one process. So null, a freed handle, one of another type and any other pointer are
/// told by a status, in every build, and touch no memory. `free` of null does nothing.
///
/// Errors. Every operation that can fail returns a `jx_status` and changes nothing when it is not
/// JX_OK. What is wrong is also a line in the log, at level 3, and `jx_error_detail()`. No
/// exception leaves the library, whatever it is built with.
///
/// Texts end at their NUL. A null text is absent, which differs from "": an absent field is left
/// out of the event. Bytes that are not UTF-8 are taken, as in C++, and stand in the event as
/// U+FFFD; only a text that is itself JSON must be UTF-8.
///
/// Threads. A `jx_server_side` belongs to the thread that made it; a `jx_object` to one thread at a
/// time. Everything else may be called on any thread. Handles may be freed on any thread, also
/// while another one uses them: that call ends well. Callbacks say who calls them.

#include "jx/c/jx_catalogue.h"
#include "jx/c/jx_configuration.h"
#include "jx/c/jx_delivery.h"
#include "jx/c/jx_events.h"
#include "jx/c/jx_notifications.h"
#include "jx/c/jx_object.h"
#include "jx/c/jx_server_side.h"
#include "jx/c/jx_status.h"

#endif
