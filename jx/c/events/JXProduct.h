// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXProduct_H
#define JX_C_EVENTS_JXProduct_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One article of the host's catalogue. A plain holder that the host fills; it must not be changed
/// while an event that holds it is being executed.
#define JXProduct_class "JXProduct"

/// A new one in `*product`, to be ended with `jx_object_free`.
static inline jx_status JXProduct_create(jx_object** product) {
  return jx_product_create(product);
}

/// `ID`, written as "id".
#define JXProduct_ID "JXProduct.ID"
/// Sets `ID`; null makes it absent.
static inline jx_status JXProduct_setID(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_ID, value);
}

/// `size`, written as "size".
#define JXProduct_size "JXProduct.size"
/// Sets `size`; null makes it absent.
static inline jx_status JXProduct_setSize(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_size, value);
}

/// `name`, written as "name".
#define JXProduct_name "JXProduct.name"
/// Sets `name`; null makes it absent.
static inline jx_status JXProduct_setName(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_name, value);
}

/// `price`, written as "price".
#define JXProduct_price "JXProduct.price"
/// Sets `price` from a decimal text; null makes it absent.
static inline jx_status JXProduct_setPrice(jx_object* product, const char* number) {
  return jx_object_set_number(product, JXProduct_price, number);
}
/// Sets `price`.
static inline jx_status JXProduct_setPrice_integer(jx_object* product, int64_t value) {
  return jx_object_set_integer(product, JXProduct_price, value);
}

/// `currency`, written as "currency".
#define JXProduct_currency "JXProduct.currency"
/// Sets `currency`; null makes it absent.
static inline jx_status JXProduct_setCurrency(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_currency, value);
}

/// `categories`, written as "category_1" and so on.
#define JXProduct_categories "JXProduct.categories"
/// Sets `categories`, a list of texts; null makes it absent.
static inline jx_status JXProduct_setCategories(
    jx_object* product,
    const char* const* texts,
    size_t count) {
  return jx_object_set_strings(product, JXProduct_categories, texts, count);
}

/// `brand`, written as "brand".
#define JXProduct_brand "JXProduct.brand"
/// Sets `brand`; null makes it absent.
static inline jx_status JXProduct_setBrand(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_brand, value);
}

/// `colors`, written as "colors".
#define JXProduct_colors "JXProduct.colors"
/// Sets `colors`, a list of texts; null makes it absent.
static inline jx_status JXProduct_setColors(
    jx_object* product,
    const char* const* texts,
    size_t count) {
  return jx_object_set_strings(product, JXProduct_colors, texts, count);
}

#ifdef __cplusplus
}
#endif

#endif
