// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXPRODUCT_H
#define JX_C_EVENTS_JXPRODUCT_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One product of the application's catalogue. The application fills it. It must not be changed
/// while an event that contains it is being executed. A price that is NaN is not written and counts
/// as not set in `verifyProduct`.
#define JXProduct_class "JXProduct"

/// Creates a product in `*product`; free it with `jx_object_free`.
static inline jx_status JXProduct_create(jx_object** product) { return jx_product_create(product); }

/// The identifier of the product. Required. JSON key "id".
#define JXProduct_ID "JXProduct.ID"
/// Sets `ID`; null removes the value.
static inline jx_status JXProduct_setID(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_ID, value);
}
/// Writes `ID` to `buffer`; see `jx_object_json`.
static inline jx_status JXProduct_getID(const jx_object* product, char* buffer, size_t capacity,
                                        size_t* length) {
  return jx_object_get_string(product, JXProduct_ID, buffer, capacity, length);
}

/// The size, as a string. JSON key "size".
#define JXProduct_size "JXProduct.size"
/// Sets `size`; null removes the value.
static inline jx_status JXProduct_setSize(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_size, value);
}
/// Writes `size` to `buffer`; see `jx_object_json`.
static inline jx_status JXProduct_getSize(const jx_object* product, char* buffer, size_t capacity,
                                          size_t* length) {
  return jx_object_get_string(product, JXProduct_size, buffer, capacity, length);
}

/// The name of the product. Required. JSON key "name".
#define JXProduct_name "JXProduct.name"
/// Sets `name`; null removes the value.
static inline jx_status JXProduct_setName(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_name, value);
}
/// Writes `name` to `buffer`; see `jx_object_json`.
static inline jx_status JXProduct_getName(const jx_object* product, char* buffer, size_t capacity,
                                          size_t* length) {
  return jx_object_get_string(product, JXProduct_name, buffer, capacity, length);
}

/// The unit price, in units of `currency`. Required. JSON key "price".
#define JXProduct_price "JXProduct.price"
/// Sets `price` from a decimal string; null removes the value.
static inline jx_status JXProduct_setPrice(jx_object* product, const char* number) {
  return jx_object_set_number(product, JXProduct_price, number);
}
/// Sets `price` from an integer.
static inline jx_status JXProduct_setPrice_integer(jx_object* product, int64_t value) {
  return jx_object_set_integer(product, JXProduct_price, value);
}
/// Writes `price` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXProduct_getPrice(const jx_object* product, char* buffer, size_t capacity,
                                           size_t* length) {
  return jx_object_get_number(product, JXProduct_price, buffer, capacity, length);
}

/// The currency of the price, preferably an ISO 4217 code such as "EUR". JSON key "currency".
#define JXProduct_currency "JXProduct.currency"
/// Sets `currency`; null removes the value.
static inline jx_status JXProduct_setCurrency(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_currency, value);
}
/// Writes `currency` to `buffer`; see `jx_object_json`.
static inline jx_status JXProduct_getCurrency(const jx_object* product, char* buffer,
                                              size_t capacity, size_t* length) {
  return jx_object_get_string(product, JXProduct_currency, buffer, capacity, length);
}

/// The product's categories, initially empty; callers may append to the list. JSON key
/// "category_1", "category_2" and so on.
#define JXProduct_categories "JXProduct.categories"
/// Sets `categories` to a list of strings; null removes the value.
static inline jx_status JXProduct_setCategories(jx_object* product, const char* const* strings,
                                                size_t count) {
  return jx_object_set_strings(product, JXProduct_categories, strings, count);
}
/// Appends a string to `categories`.
static inline jx_status JXProduct_categories_append(jx_object* product, const char* value) {
  return jx_object_list_insert_string(product, JXProduct_categories, JX_LIST_END, value);
}
/// Writes `categories` at `index` to `buffer`.
static inline jx_status JXProduct_getCategories(const jx_object* product, size_t index,
                                                char* buffer, size_t capacity, size_t* length) {
  return jx_object_list_get_string(product, JXProduct_categories, index, buffer, capacity, length);
}
/// Writes the number of elements of `categories`.
static inline jx_status JXProduct_categories_count(const jx_object* product, size_t* count) {
  return jx_object_list_count(product, JXProduct_categories, count);
}
/// Sets `categories` to an empty list.
static inline jx_status JXProduct_categories_clear(jx_object* product) {
  return jx_object_list_clear(product, JXProduct_categories);
}

/// The brand. JSON key "brand".
#define JXProduct_brand "JXProduct.brand"
/// Sets `brand`; null removes the value.
static inline jx_status JXProduct_setBrand(jx_object* product, const char* value) {
  return jx_object_set_string(product, JXProduct_brand, value);
}
/// Writes `brand` to `buffer`; see `jx_object_json`.
static inline jx_status JXProduct_getBrand(const jx_object* product, char* buffer, size_t capacity,
                                           size_t* length) {
  return jx_object_get_string(product, JXProduct_brand, buffer, capacity, length);
}

/// The product's colors, initially empty; callers may append to the list. JSON key "colors".
#define JXProduct_colors "JXProduct.colors"
/// Sets `colors` to a list of strings; null removes the value.
static inline jx_status JXProduct_setColors(jx_object* product, const char* const* strings,
                                            size_t count) {
  return jx_object_set_strings(product, JXProduct_colors, strings, count);
}
/// Appends a string to `colors`.
static inline jx_status JXProduct_colors_append(jx_object* product, const char* value) {
  return jx_object_list_insert_string(product, JXProduct_colors, JX_LIST_END, value);
}
/// Writes `colors` at `index` to `buffer`.
static inline jx_status JXProduct_getColors(const jx_object* product, size_t index, char* buffer,
                                            size_t capacity, size_t* length) {
  return jx_object_list_get_string(product, JXProduct_colors, index, buffer, capacity, length);
}
/// Writes the number of elements of `colors`.
static inline jx_status JXProduct_colors_count(const jx_object* product, size_t* count) {
  return jx_object_list_count(product, JXProduct_colors, count);
}
/// Sets `colors` to an empty list.
static inline jx_status JXProduct_colors_clear(jx_object* product) {
  return jx_object_list_clear(product, JXProduct_colors);
}

#ifdef __cplusplus
}
#endif

#endif
