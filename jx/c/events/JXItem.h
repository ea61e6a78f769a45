// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.
// clang-format off
#ifndef JX_C_EVENTS_JXItem_H
#define JX_C_EVENTS_JXItem_H

#include "jx/c/jx_object.h"

#ifdef __cplusplus
extern "C" {
#endif

/// One line of a shopping event: a product with its quantity, discount, position and the like. A
/// plain holder that the host fills; it must not be changed while an event that holds it is being
/// executed.
#define JXItem_class "JXItem"

/// A new one in `*item`, to be ended with `jx_object_free`.
static inline jx_status JXItem_create(jx_object** item) {
  return jx_item_create(item);
}

/// `ID`, written as "id".
#define JXItem_ID "JXItem.ID"
/// Sets `ID`; null makes it absent.
static inline jx_status JXItem_setID(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_ID, value);
}

/// `quantity`, written as "quantity".
#define JXItem_quantity "JXItem.quantity"
/// Sets `quantity` from a decimal text; null makes it absent.
static inline jx_status JXItem_setQuantity(jx_object* item, const char* number) {
  return jx_object_set_number(item, JXItem_quantity, number);
}
/// Sets `quantity`.
static inline jx_status JXItem_setQuantity_integer(jx_object* item, int64_t value) {
  return jx_object_set_integer(item, JXItem_quantity, value);
}

/// `variant`, written as "variant".
#define JXItem_variant "JXItem.variant"
/// Sets `variant`; null makes it absent.
static inline jx_status JXItem_setVariant(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_variant, value);
}

/// `list_position`, written as "list_position".
#define JXItem_list_position "JXItem.list_position"
/// Sets `list_position` from a decimal text; null makes it absent.
static inline jx_status JXItem_setList_position(jx_object* item, const char* number) {
  return jx_object_set_number(item, JXItem_list_position, number);
}
/// Sets `list_position`.
static inline jx_status JXItem_setList_position_integer(jx_object* item, int64_t value) {
  return jx_object_set_integer(item, JXItem_list_position, value);
}

/// `discount`, written as "discount".
#define JXItem_discount "JXItem.discount"
/// Sets `discount` from a decimal text; null makes it absent.
static inline jx_status JXItem_setDiscount(jx_object* item, const char* number) {
  return jx_object_set_number(item, JXItem_discount, number);
}
/// Sets `discount`.
static inline jx_status JXItem_setDiscount_integer(jx_object* item, int64_t value) {
  return jx_object_set_integer(item, JXItem_discount, value);
}

/// `coupon`, written as "coupon".
#define JXItem_coupon "JXItem.coupon"
/// Sets `coupon`; null makes it absent.
static inline jx_status JXItem_setCoupon(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_coupon, value);
}

/// `affiliation`, written as "affiliation".
#define JXItem_affiliation "JXItem.affiliation"
/// Sets `affiliation`; null makes it absent.
static inline jx_status JXItem_setAffiliation(jx_object* item, const char* value) {
  return jx_object_set_string(item, JXItem_affiliation, value);
}

/// `product`, written as "product".
#define JXItem_product "JXItem.product"
/// Sets `product` to a copy of a product; null makes it absent.
static inline jx_status JXItem_setProduct(jx_object* item, const jx_object* product) {
  return jx_object_set_product(item, JXItem_product, product);
}

#ifdef __cplusplus
}
#endif

#endif
