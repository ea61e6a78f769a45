// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_OBJECT_H
#define JX_C_JX_OBJECT_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include "jx/c/jx_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/// An event, an item or a product: an object of a class, with fields and parameters. The headers in
/// jx/c/events declare a function for each class and each field. The functions of this header
/// identify classes and fields by name, for programs that obtain the names at run time.
typedef struct jx_object jx_object;

/// Creates an event in `*event`, initialised as in C++. `class_name` is any event class, including
/// the base classes: "JXPurchaseEvent". Returns JX_ERROR_UNKNOWN_ENUMERATOR for a class that
/// requires a mode. On an error `*event` is null.
JX_API jx_status jx_event_create(const char* class_name, jx_object** event);
/// Creates an event of a class with modes. `mode` is the index of the mode, from 0, and determines
/// the name of the event. `session_id` is its video session; null if there is none. On an error
/// `*event` is null.
JX_API jx_status jx_event_create_with_mode(const char* class_name, uint32_t mode,
                                           const char* session_id, jx_object** event);
/// Creates a custom event, a JXCustomEvent. If `name` is null, the event is sent without a name.
JX_API jx_status jx_custom_event_create(const char* name, jx_object** event);
/// Creates an item that contains an empty product.
JX_API jx_status jx_item_create(jx_object** item);
/// Creates a product.
JX_API jx_status jx_product_create(jx_object** product);
/// Frees the object. Null does nothing.
JX_API jx_status jx_object_free(jx_object* object);

// Fields. A field is identified by its property, "coupon", or by class and property,
// "JXPurchaseEvent.coupon". The second form returns JX_ERROR_WRONG_CLASS for an object of another
// class. Setting a field replaces its value.

/// Sets a string field. Null removes the value; "" is a value.
JX_API jx_status jx_object_set_string(jx_object* object, const char* field, const char* value);
/// Sets a number field from an exact decimal string such as "12.50", whose scale is kept. A sign
/// and an exponent are allowed; more than 38 digits are rounded. Null removes the value.
JX_API jx_status jx_object_set_number(jx_object* object, const char* field, const char* value);
/// Sets a number field from an integer.
JX_API jx_status jx_object_set_integer(jx_object* object, const char* field, int64_t value);
/// Sets a number field to the shortest decimal number that converts back to the same double. Pass
/// amounts of money as strings instead.
JX_API jx_status jx_object_set_double(jx_object* object, const char* field, double value);
/// Sets a Boolean field. Boolean fields are always written.
JX_API jx_status jx_object_set_boolean(jx_object* object, const char* field, bool value);
/// Sets an enumeration field by the value of an enumerator, from 0.
JX_API jx_status jx_object_set_enum(jx_object* object, const char* field, uint32_t value);
/// Sets a list field to `count` strings, each of which may be null. A null list removes the value.
JX_API jx_status jx_object_set_strings(jx_object* object, const char* field,
                                       const char* const* strings, size_t count);
/// Sets a product field to a copy of `product`. Null removes the value.
JX_API jx_status jx_object_set_product(jx_object* object, const char* field,
                                       const jx_object* product);
/// Appends a copy of `item` to a list field. The list is initially empty. Returns JX_ERROR_NOT_SET
/// without a change if the list is null: call `jx_object_list_clear` first.
JX_API jx_status jx_object_add_item(jx_object* object, const char* field, const jx_object* item);
/// Sets any field from a JSON value. An enumeration is the name of its enumerator; an item or a
/// product is an object of its properties. Null removes the value.
JX_API jx_status jx_object_set_json(jx_object* object, const char* field, const char* json);
/// Removes the value of a field. Boolean and enumeration fields always have a value: returns
/// JX_ERROR_WRONG_TYPE.
JX_API jx_status jx_object_set_null(jx_object* object, const char* field);

// Reading fields. A field that is null returns JX_ERROR_NOT_SET, and nothing is written. See
// `jx_object_json` for buffers.

/// Writes the value of a string field.
JX_API jx_status jx_object_get_string(const jx_object* object, const char* field, char* buffer,
                                      size_t capacity, size_t* length);
/// Writes the value of a number field as an exact decimal string, with its scale: "12.50".
JX_API jx_status jx_object_get_number(const jx_object* object, const char* field, char* buffer,
                                      size_t capacity, size_t* length);
/// Writes the value of a Boolean field to `*value`.
JX_API jx_status jx_object_get_boolean(const jx_object* object, const char* field, bool* value);
/// Writes the value of an enumeration field to `*value`: the value of an enumerator, from 0.
JX_API jx_status jx_object_get_enum(const jx_object* object, const char* field, uint32_t* value);
/// Writes the value of any field as compact JSON, in the form that `jx_object_set_json` accepts.
JX_API jx_status jx_object_get_json(const jx_object* object, const char* field, char* buffer,
                                    size_t capacity, size_t* length);

// Lists: fields that contain strings, items or arbitrary values. Lists behave as in C++: a list
// that is null has no elements and ignores changes. For such a list all functions but
// `jx_object_list_clear` return JX_ERROR_NOT_SET. Indexes start at 0.

/// Writes the number of elements to `*count`, null elements included; 0 for a null list.
JX_API jx_status jx_object_list_count(const jx_object* object, const char* field, size_t* count);
/// Writes the string at `index`. Returns JX_ERROR_NOT_SET for a null element, JX_ERROR_OUT_OF_RANGE
/// if there is no element, and JX_ERROR_WRONG_TYPE for any other value than a string.
JX_API jx_status jx_object_list_get_string(const jx_object* object, const char* field, size_t index,
                                           char* buffer, size_t capacity, size_t* length);
/// Writes the element at `index` as compact JSON: "null" for a null element. Returns
/// JX_ERROR_OUT_OF_RANGE if there is no element.
JX_API jx_status jx_object_list_get_json(const jx_object* object, const char* field, size_t index,
                                         char* buffer, size_t capacity, size_t* length);

/// The index that appends an element.
#define JX_LIST_END SIZE_MAX

/// Inserts a string before the element at `index`, or appends it if there is none. Null inserts a
/// null element into a list of strings, and nothing into a list of arbitrary values.
JX_API jx_status jx_object_list_insert_string(jx_object* object, const char* field, size_t index,
                                              const char* value);
/// Inserts a number, from an exact decimal string, into a list of arbitrary values. Null inserts
/// nothing.
JX_API jx_status jx_object_list_insert_number(jx_object* object, const char* field, size_t index,
                                              const char* value);
/// Inserts a Boolean into a list of arbitrary values.
JX_API jx_status jx_object_list_insert_boolean(jx_object* object, const char* field, size_t index,
                                               bool value);
/// Inserts a null element into any list. In a list of arbitrary values it is written as `null`; in
/// other lists it is not written.
JX_API jx_status jx_object_list_insert_null(jx_object* object, const char* field, size_t index);
/// Inserts any JSON value into a list of arbitrary values. Null inserts nothing.
JX_API jx_status jx_object_list_insert_json(jx_object* object, const char* field, size_t index,
                                            const char* json);
/// Inserts a copy of `item` into a list of items.
JX_API jx_status jx_object_list_insert_item(jx_object* object, const char* field, size_t index,
                                            const jx_object* item);
/// Removes the element at `index`. Returns JX_ERROR_OUT_OF_RANGE if there is none.
JX_API jx_status jx_object_list_remove(jx_object* object, const char* field, size_t index);
/// Sets a list field to an empty list, even if it was null.
JX_API jx_status jx_object_list_clear(jx_object* object, const char* field);

// Parameters: values that the application adds under its own keys. They are written before the
// fields; a field with the same key overrides them. Adding a key again replaces its value. A null
// value adds nothing.

/// Adds a string parameter.
JX_API jx_status jx_object_add_parameter(jx_object* object, const char* key, const char* value);
/// Adds a parameter with any JSON value: a number, an object, an array, `true`, `null`. Numbers are
/// kept exactly, without rounding.
JX_API jx_status jx_object_add_parameter_json(jx_object* object, const char* key, const char* json);

// Inspection.

/// Validates the object. Returns JX_OK if all required fields are set, else JX_ERROR_INCOMPLETE;
/// `jx_error_detail()` then describes the first failed condition. `jx_execute` does not validate.
JX_API jx_status jx_object_verify(const jx_object* object);
/// Writes the object as compact JSON, equal to `getJsonObject` in C++. The JSON of an event
/// contains a new "event_id" in each call, and does not contain the blocks that surround it in a
/// request. Writes at most `capacity` bytes including the NUL, and the length without the NUL to
/// `*length`, which may be null. If the buffer is too small, writes "" (if `capacity` is not 0) and
/// returns JX_ERROR_TOO_SMALL. Pass a null buffer and capacity 0 to get the required length.
JX_API jx_status jx_object_json(const jx_object* object, char* buffer, size_t capacity,
                                size_t* length);
/// Returns the name of the object's class, a constant. Returns null if the handle is not valid.
JX_API const char* jx_object_class(const jx_object* object);

#ifdef __cplusplus
}
#endif

#endif
