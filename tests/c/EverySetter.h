// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef TESTS_C_EVERYSETTER_H
#define TESTS_C_EVERYSETTER_H

#include "jx/c/jx_object.h"
#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Told each class by an object of it of which every field was set; the object is alive during the
/// call.
typedef void (*every_setter_visitor)(void* context, const char* class_name, jx_object* object);

/// Makes an object of every class by its own operation and sets every field of it, those of its
/// bases included, by the field's own operations. Returns how many calls did not return JX_OK. Its
/// source is written by the build, from the tables of the catalogue.
int every_setter(every_setter_visitor visitor, void* context);

#ifdef __cplusplus
}
#endif

#endif
