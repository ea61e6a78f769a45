// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/c/PlainC.h"

static int failures;

static void expect(jx_status status) { failures += status != JX_OK; }

static void append_item(jx_object* purchase, const char* id, const char* name, const char* price,
                        int64_t quantity) {
  static const char* const colors[] = {"red", "black"};
  static const char* const categories[] = {"home", NULL, "light"};
  jx_object* product = NULL;
  jx_object* item = NULL;
  expect(JXProduct_create(&product));
  expect(JXProduct_setID(product, id));
  expect(JXProduct_setName(product, name));
  expect(JXProduct_setPrice(product, price));
  expect(JXProduct_setColors(product, colors, 2));
  expect(JXProduct_setCategories(product, categories, 3));
  expect(jx_object_add_parameter(product, "made_in", "GB"));
  expect(JXItem_create(&item));
  expect(JXItem_setID(item, id));
  expect(JXItem_setQuantity_integer(item, quantity));
  expect(JXItem_setDiscount(item, "0.10"));
  expect(jx_object_add_parameter_json(item, "gift", "true"));
  expect(JXItem_setProduct(item, product));
  expect(jx_object_free(product));
  expect(JXPurchaseEvent_items_append(purchase, item));
  expect(jx_object_free(item));
}

jx_object* plain_purchase(void) {
  jx_object* event = NULL;
  failures = 0;
  expect(JXPurchaseEvent_create(&event));
  expect(JXPurchaseEvent_setID(event, "536365"));
  expect(JXPurchaseEvent_setRevenue(event, "139.120"));
  expect(JXPurchaseEvent_setValue_integer(event, 140));
  expect(JXPurchaseEvent_setCurrency(event, "GBP"));
  expect(JXPurchaseEvent_setShippingAmount(event, "3.00"));
  expect(JXPurchaseEvent_setTaxAmount(event, "0"));
  expect(JXPurchaseEvent_setCoupon(event, ""));
  expect(JXPurchaseEvent_setType(event, "retail"));
  expect(JXPurchaseEvent_setPaymentMethod(event, EJXPayementMethod_CARD));
  expect(JXPurchaseEvent_setStatus(event, EJXPurchaseStatus_IN_PROGRESS));
  expect(JXPurchaseEvent_setUrl(event, NULL));
  expect(JXPurchaseEvent_setPageName(event, "caf\xC3\xA9"));
  expect(jx_object_add_parameter(event, "store", "uk"));
  expect(jx_object_add_parameter_json(event, "basket", "{\"points\":12.50,\"old\":null}"));
  append_item(event, "85123A", "LANTERN", "3.39", 6);
  append_item(event, "71053", "LAMP \"bright\"", "25.30", 1);
  if (failures == 0) return event;
  (void)jx_object_free(event);
  return NULL;
}

const char* const* plain_names(void) {
  static const char* const names[] = {
      JX_ID,
      JXE_PAYMENTMETHOD,
      JXI_QUANTITY,
      JXP_CATEGORY_N,
      JXL_SESSION_ID,
      JXA_NAMESPACE,
      JXV_AD_TYPE,
      JXD_OS,
      EJXPayementMethod_CARD,
      EJXPurchaseStatus_SHIPPE,
      kJXPredefinedVariable_Language,
      kJXPredefinedVariable_AccumulatedForegroundTimeWithoutMeasurement,
      kJXPredefinedVariable_IDFA,
      JX_ConsentVersion,
      kJXNotification_HTTPRequest,
      kJXUserInfo_URLKey,
      NULL};
  return names;
}
