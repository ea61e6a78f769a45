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

/// An event, an item or a product: an object of a class, with fields and parameters. The headers
/// below jx/c/events have an operation for each class and each field; those here take their names,
/// for programs that bring the names from elsewhere.
typedef struct jx_object jx_object;

/// A new event as the class's initialiser makes it, in `*event`. `class_name` is any event class,
/// the bases included: "JXPurchaseEvent". A class with modes needs one and gives
/// JX_ERROR_UNKNOWN_ENUMERATOR here. On an error `*event` is null.
JX_API jx_status jx_event_create(const char* class_name, jx_object** event);
/// The same for a class with modes: `mode` is the number of one, from 0, which chooses the event's
/// name; `session_id` is its video session, null for none.
JX_API jx_status jx_event_create_with_mode(const char* class_name, uint32_t mode,
                                           const char* session_id, jx_object** event);
/// A new event of the host's own making, a JXCustomEvent. A null name is taken: the event is sent
/// without one.
JX_API jx_status jx_custom_event_create(const char* name, jx_object** event);
/// A new item with an empty product in it.
JX_API jx_status jx_item_create(jx_object** item);
/// A new product.
JX_API jx_status jx_product_create(jx_object** product);
/// Ends the object. Null is allowed and does nothing.
JX_API jx_status jx_object_free(jx_object* object);

// Fields. A field is named by its property, "coupon", or by class and property,
// "JXPurchaseEvent.coupon"; in the second form an object of another class refuses it with
// JX_ERROR_WRONG_CLASS. Setting replaces what the field held.

/// A text. Null makes the field absent; "" is a text.
JX_API jx_status jx_object_set_string(jx_object* object, const char* field, const char* value);
/// An exact decimal number from its text, "12.50", of which the scale is kept. A sign and an
/// exponent are allowed; more than 38 digits are rounded. Null makes the field absent.
JX_API jx_status jx_object_set_number(jx_object* object, const char* field, const char* value);
/// A number without a fraction.
JX_API jx_status jx_object_set_integer(jx_object* object, const char* field, int64_t value);
/// The shortest decimal that reads back as the same double. Not for money, which is a text.
JX_API jx_status jx_object_set_double(jx_object* object, const char* field, double value);
/// True or false; a flag is always written.
JX_API jx_status jx_object_set_boolean(jx_object* object, const char* field, bool value);
/// The number of a member of the field's enumeration, from 0.
JX_API jx_status jx_object_set_enum(jx_object* object, const char* field, uint32_t value);
/// A list of `count` texts, of which each may be null for an absent one. A null list makes the
/// field absent.
JX_API jx_status jx_object_set_strings(jx_object* object, const char* field,
                                       const char* const* texts, size_t count);
/// A copy of a product as the field's value; null makes the field absent.
JX_API jx_status jx_object_set_product(jx_object* object, const char* field,
                                       const jx_object* product);
/// Appends a copy of an item to the field's list, which is empty at first.
JX_API jx_status jx_object_add_item(jx_object* object, const char* field, const jx_object* item);
/// Any value as JSON text: the way to fields that hold lists of any values. An enumeration is the
/// name of its member, an item or a product an object of its properties. Null makes the field
/// absent.
JX_API jx_status jx_object_set_json(jx_object* object, const char* field, const char* json);
/// Makes the field absent. A flag and an enumeration always have a value: JX_ERROR_WRONG_TYPE.
JX_API jx_status jx_object_set_null(jx_object* object, const char* field);

// Parameters: what the host adds under keys of its own. They come before the fields; a field of
// the same key replaces them. Adding a key twice keeps the later value. A null value adds nothing.

/// A text under a key of the host's own.
JX_API jx_status jx_object_add_parameter(jx_object* object, const char* key, const char* value);
/// Any JSON value: a number, an object, an array, `true`, `null`. Numbers are kept digit for digit.
JX_API jx_status jx_object_add_parameter_json(jx_object* object, const char* key, const char* json);

// What the object has become.

/// JX_OK when the object has all that its class asks for, else JX_ERROR_INCOMPLETE with the first
/// thing that it lacks in `jx_error_detail()`. `jx_execute` does not ask.
JX_API jx_status jx_object_verify(const jx_object* object);
/// The object's JSON as compact text, as C++'s `getJsonObject`. An event's holds a new "event_id"
/// each time; what is around it in a request is not in it. Writes at most `capacity` bytes with the
/// NUL, and the text's length without it to `*length`, which may be null. When the buffer is too
/// small it holds "", if anything, and the status is JX_ERROR_TOO_SMALL; a null buffer of capacity
/// 0 asks for the length.
JX_API jx_status jx_object_json(const jx_object* object, char* buffer, size_t capacity,
                                size_t* length);
/// Name of the object's class: a constant. Null when the handle is no living object.
JX_API const char* jx_object_class(const jx_object* object);

#ifdef __cplusplus
}
#endif

#endif
