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

/// Type of a field. It determines the function that sets the field.
typedef enum jx_kind {
  JX_KIND_STRING = 0,            ///< `jx_object_set_string`
  JX_KIND_NUMBER = 1,            ///< `jx_object_set_number`, `_integer`, `_double`
  JX_KIND_BOOLEAN = 2,           ///< `jx_object_set_boolean`
  JX_KIND_STRINGS = 3,           ///< `jx_object_set_strings`, `jx_object_list_insert_string`
  JX_KIND_NUMBERED_STRINGS = 4,  ///< as JX_KIND_STRINGS; written as key1, key2 and so on
  JX_KIND_VALUES = 5,            ///< `jx_object_set_json`, `jx_object_list_insert_...`
  JX_KIND_ENUM = 6,              ///< `jx_object_set_enum`
  JX_KIND_ITEMS = 7,             ///< `jx_object_list_insert_item`
  JX_KIND_PRODUCT = 8            ///< `jx_object_set_product`
} jx_kind;

/// Describes one field of a class.
typedef struct jx_field {
  const char* property;        ///< name of the property: "paymentMethod"
  const char* key;             ///< JSON key: "payment_method"
  jx_kind kind;                ///< type of the value; determines the function that sets it
  bool is_written;             ///< false: settable, but not part of the JSON of this class
  const char* const* members;  ///< names of the enumerators, indexed by their values
  size_t member_count;         ///< number of `members`
} jx_field;

/// Describes one class: its names, and its own fields. The fields of `base` precede them in JSON.
typedef struct jx_class {
  const char* name;                ///< "JXPurchaseEvent"
  const struct jx_class* base;     ///< null for JXEvent, JXItem and JXProduct
  bool is_event;                   ///< false for JXItem and JXProduct
  const jx_field* fields;          ///< its own fields, in the order in which they are written
  size_t field_count;              ///< number of `fields`
  const char* const* event_names;  ///< names of its events; one for each mode
  size_t event_name_count;         ///< number of `event_names`
  const char* const* modes;        ///< parallel to `event_names`; empty for a class without modes
  size_t mode_count;               ///< number of `modes`
} jx_class;

/// Returns the class at `index`, counted from 0: the events, bases first, then JXItem and
/// JXProduct. Returns null if `index` is out of range. The result is constant.
JX_API const jx_class* jx_class_at(size_t index);
/// Returns the class named `name`, or null if `name` is null or unknown. The result is constant.
JX_API const jx_class* jx_class_named(const char* name);

#ifdef __cplusplus
}
#endif

#endif
