// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#ifndef JX_C_EVENTS_JXITEM_H
#define JX_C_EVENTS_JXITEM_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One item of an e-commerce event: a product with its quantity, discount, list position and other
/// attributes. The application fills it. It must not be changed while an event that contains it is
/// being executed. An amount that is NaN is not written and counts as not set in `verifyItem`.
#define JXItem_class "JXItem"

/// Creates an item in `*item`; free it with `jx_object_free`.
static inline jx_status JXItem_create(jx_object** item) { return jx_item_create(item); }

/// The identifier of the item, in addition to that of its product. Required. JSON key "id".
#define JXItem_ID "JXItem.ID"
/// Sets `ID`; null removes the value.
static inline jx_status JXItem_setID(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_ID, value);
}
/// Writes `ID` to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getID(const jx_object* item, char* buffer, size_t capacity,
                                     size_t* length) {
  return jx_object_get_string(item, JXItem_ID, buffer, capacity, length);
}

/// The quantity. Required. JSON key "quantity".
#define JXItem_quantity "JXItem.quantity"
/// Sets `quantity` from a decimal string; null removes the value.
static inline jx_status JXItem_setQuantity(jx_object* item, const char* number) {
  return jx_object_set_number(item, JXItem_quantity, number);
}
/// Sets `quantity` from an integer.
static inline jx_status JXItem_setQuantity_integer(jx_object* item, int64_t value) {
  return jx_object_set_integer(item, JXItem_quantity, value);
}
/// Writes `quantity` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getQuantity(const jx_object* item, char* buffer, size_t capacity,
                                           size_t* length) {
  return jx_object_get_number(item, JXItem_quantity, buffer, capacity, length);
}

/// The variant of the product. JSON key "variant".
#define JXItem_variant "JXItem.variant"
/// Sets `variant`; null removes the value.
static inline jx_status JXItem_setVariant(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_variant, value);
}
/// Writes `variant` to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getVariant(const jx_object* item, char* buffer, size_t capacity,
                                          size_t* length) {
  return jx_object_get_string(item, JXItem_variant, buffer, capacity, length);
}

/// The position of the item in the list shown to the viewer. JSON key "list_position".
#define JXItem_list_position "JXItem.list_position"
/// Sets `list_position` from a decimal string; null removes the value.
static inline jx_status JXItem_setList_position(jx_object* item, const char* number) {
  return jx_object_set_number(item, JXItem_list_position, number);
}
/// Sets `list_position` from an integer.
static inline jx_status JXItem_setList_position_integer(jx_object* item, int64_t value) {
  return jx_object_set_integer(item, JXItem_list_position, value);
}
/// Writes `list_position` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getList_position(const jx_object* item, char* buffer,
                                                size_t capacity, size_t* length) {
  return jx_object_get_number(item, JXItem_list_position, buffer, capacity, length);
}

/// The discount, in units of the currency. JSON key "discount".
#define JXItem_discount "JXItem.discount"
/// Sets `discount` from a decimal string; null removes the value.
static inline jx_status JXItem_setDiscount(jx_object* item, const char* number) {
  return jx_object_set_number(item, JXItem_discount, number);
}
/// Sets `discount` from an integer.
static inline jx_status JXItem_setDiscount_integer(jx_object* item, int64_t value) {
  return jx_object_set_integer(item, JXItem_discount, value);
}
/// Writes `discount` as a decimal string to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getDiscount(const jx_object* item, char* buffer, size_t capacity,
                                           size_t* length) {
  return jx_object_get_number(item, JXItem_discount, buffer, capacity, length);
}

/// The coupon code used for this item. JSON key "coupon".
#define JXItem_coupon "JXItem.coupon"
/// Sets `coupon`; null removes the value.
static inline jx_status JXItem_setCoupon(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_coupon, value);
}
/// Writes `coupon` to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getCoupon(const jx_object* item, char* buffer, size_t capacity,
                                         size_t* length) {
  return jx_object_get_string(item, JXItem_coupon, buffer, capacity, length);
}

/// The shop or affiliate that supplies the item. JSON key "affiliation".
#define JXItem_affiliation "JXItem.affiliation"
/// Sets `affiliation`; null removes the value.
static inline jx_status JXItem_setAffiliation(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_affiliation, value);
}
/// Writes `affiliation` to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getAffiliation(const jx_object* item, char* buffer, size_t capacity,
                                              size_t* length) {
  return jx_object_get_string(item, JXItem_affiliation, buffer, capacity, length);
}

/// The product; shared with the application, not copied. Required. JSON key "product".
#define JXItem_product "JXItem.product"
/// Sets `product` to a copy of a product; null removes the value.
static inline jx_status JXItem_setProduct(jx_object* item, const jx_object* product) {
  return jx_object_set_product(item, JXItem_product, product);
}
/// Writes `product` as a JSON object of properties to `buffer`; see `jx_object_json`.
static inline jx_status JXItem_getProduct(const jx_object* item, char* buffer, size_t capacity,
                                          size_t* length) {
  return jx_object_get_json(item, JXItem_product, buffer, capacity, length);
}

#ifdef __cplusplus
}
#endif

#endif
