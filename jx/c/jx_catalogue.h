// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_CATALOGUE_H
#define JX_C_JX_CATALOGUE_H

#include <stdbool.h>
#include <stddef.h>

#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What a field holds, and so which operation sets it.
typedef enum jx_kind {
  JX_KIND_STRING = 0,            ///< `jx_object_set_string`
  JX_KIND_NUMBER = 1,            ///< `jx_object_set_number`, `_integer`, `_double`
  JX_KIND_BOOLEAN = 2,           ///< `jx_object_set_boolean`
  JX_KIND_STRINGS = 3,           ///< `jx_object_set_strings`
  JX_KIND_NUMBERED_STRINGS = 4,  ///< `jx_object_set_strings`; written as key1, key2 and so on
  JX_KIND_VALUES = 5,            ///< `jx_object_set_json`
  JX_KIND_ENUM = 6,              ///< `jx_object_set_enum`
  JX_KIND_ITEMS = 7,             ///< `jx_object_add_item`
  JX_KIND_PRODUCT = 8            ///< `jx_object_set_product`
} jx_kind;

/// One field of a class.
typedef struct jx_field {
  const char* property;        ///< "paymentMethod"
  const char* key;             ///< where it stands in JSON: "payment_method"
  jx_kind kind;                ///< what it holds, and so which operation sets it
  bool is_written;             ///< false: it may be set, and no JSON of this very class shows it
  const char* const* members;  ///< names of an enumeration's members, by their numbers
  size_t member_count;         ///< how many `members` there are
} jx_field;

/// One class: what it is called, and its own fields behind those of its base.
typedef struct jx_class {
  const char* name;                ///< "JXPurchaseEvent"
  const struct jx_class* base;     ///< null for JXEvent, JXItem and JXProduct
  bool is_event;                   ///< false for JXItem and JXProduct
  const jx_field* fields;          ///< its own fields, in writing order
  size_t field_count;              ///< how many `fields` there are
  const char* const* event_names;  ///< what its events are called; one for each mode
  size_t event_name_count;         ///< how many `event_names` there are
  const char* const* modes;        ///< in step with `event_names`; none for a class without modes
  size_t mode_count;               ///< how many `modes` there are
} jx_class;

/// The classes, from 0: the events, bases first, then JXItem and JXProduct. Null beyond the last.
/// What it points to is constant.
JX_API const jx_class* jx_class_at(size_t index);
/// The class of this name; null when there is none.
JX_API const jx_class* jx_class_named(const char* name);

#ifdef __cplusplus
}
#endif

#endif
