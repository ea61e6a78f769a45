// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A session of a TV application in C: consent, shopping, and a film with an advertisement.
#include <inttypes.h>
#include <stdio.h>

#include "jx/c/jx.h"

static jx_server_side* library;
static int failures;

// Every function returns a status. Errors are also logged, so an application may ignore it.
static void expect(jx_status status) {
  if (status == JX_OK) return;
  fprintf(stderr, "%s: %s\n", jx_status_string(status), jx_error_detail());
  ++failures;
}

// Sends an event and frees it. If its creation failed, `event` is null and jx_execute returns an
// error.
static void send(jx_object* event) {
  expect(jx_execute(library, event));
  expect(jx_object_free(event));
}

static jx_object* lantern(int64_t quantity) {
  static const char* const categories[] = {"home", "light"};
  jx_object* product = NULL;
  jx_object* item = NULL;
  expect(JXProduct_create(&product));
  expect(JXProduct_setID(product, "85123A"));
  expect(JXProduct_setName(product, "Lantern"));
  expect(JXProduct_setPrice(product, "3.39"));  // amounts are strings, so they stay exact
  expect(JXProduct_setCategories(product, categories, 2));
  expect(JXItem_create(&item));
  expect(JXItem_setID(item, "1"));
  expect(JXItem_setQuantity_integer(item, quantity));
  expect(JXItem_setProduct(item, product));  // a copy
  expect(jx_object_free(product));
  return item;
}

static void browse(void) {
  jx_object* event = NULL;
  expect(JXPageViewEvent_create(&event));
  expect(JXPageViewEvent_setPageName(event, "home"));
  expect(JXPageViewEvent_setPageType(event, "hub"));
  send(event);

  expect(JXSearchEvent_create(&event));
  expect(JXSearchEvent_setSearchTerm(event, "lantern"));
  send(event);
}

static void shop(void) {
  jx_object* event = NULL;
  jx_object* item = lantern(6);
  expect(JXAddToCartEvent_create(&event));
  expect(JXAddToCartEvent_setValue(event, "20.34"));
  expect(JXAddToCartEvent_setCurrency(event, "GBP"));
  expect(JXAddToCartEvent_items_append(event, item));
  send(event);

  expect(JXPurchaseEvent_create(&event));
  expect(JXPurchaseEvent_setID(event, "536365"));
  expect(JXPurchaseEvent_setRevenue(event, "23.34"));
  expect(JXPurchaseEvent_setValue(event, "20.34"));
  expect(JXPurchaseEvent_setShippingAmount(event, "3.00"));
  expect(JXPurchaseEvent_setCurrency(event, "GBP"));
  expect(JXPurchaseEvent_setType(event, "retail"));
  expect(JXPurchaseEvent_setPaymentMethod(event, EJXPayementMethod_CARD));
  expect(JXPurchaseEvent_setStatus(event, EJXPurchaseStatus_PENDING));
  expect(JXPurchaseEvent_items_append(event, item));
  expect(jx_object_add_parameter_json(event, "gift", "true"));
  expect(jx_object_verify(event));  // all required fields are set
  send(event);
  expect(jx_object_free(item));
}

static void play(EJXVideoPlaybackMode mode, int64_t position) {
  jx_object* event = NULL;
  expect(JXVideoPlaybackEvent_create(mode, "film-1", &event));
  expect(JXVideoPlaybackEvent_setVideoTitle(event, "The Lighthouse Keeper"));
  expect(JXVideoPlaybackEvent_setTotalLength_integer(event, 5400));
  expect(JXVideoPlaybackEvent_setCursorPosition_integer(event, position));
  expect(JXVideoPlaybackEvent_setFullScreen(event, true));
  send(event);
}

static void advertise(EJXVideoAdMode mode) {
  jx_object* event = NULL;
  expect(JXVideoAdEvent_create(mode, "film-1", &event));
  expect(JXVideoAdEvent_setAdAssetID(event, "ad-7"));
  expect(JXVideoAdEvent_setAdType(event, EJXAdType_MID_ROLL));
  send(event);
}

static void watch(void) {
  jx_object* event = NULL;
  play(EJXVideoPlaybackMode_START, 0);
  advertise(EJXVideoAdMode_START);
  advertise(EJXVideoAdMode_COMPLETE);
  expect(JXVideoContentEvent_create(EJXVideoContentMode_QUARTER_REACHED, "film-1", &event));
  expect(JXVideoContentEvent_keywords_append_string(event, "sea"));
  expect(JXVideoContentEvent_keywords_append_string(event, "light"));
  send(event);
  expect(JXVideoSettingEvent_create(EJXVideoSettingMode_SUBTITLE_ON, "film-1", &event));
  send(event);
  play(EJXVideoPlaybackMode_COMPLETE, 5400);

  expect(JXCustomEvent_create("quiz_answered", &event));
  expect(jx_object_add_parameter(event, "answer", "B"));
  send(event);
}

static void print_counters(void) {
  jx_counters counters;
  expect(jx_counters_get(&counters, sizeof counters));
  printf("added %" PRIu64 ", delivered %" PRIu64 ", rejected %" PRIu64 ", queued %" PRIu64 "\n",
         counters.added, counters.delivered, counters.rejected, counters.queued);
}

// session [HOST [CA_FILE [STORAGE_FOLDER]]]
int main(int argc, char** argv) {
  jx_configuration configuration;
  jx_status flushed;
  expect(jx_configuration_init(&configuration, sizeof configuration));
  if (argc > 1) configuration.collection_host = argv[1];
  if (argc > 2) configuration.ca_file = argv[2];
  if (argc > 3) configuration.storage_folder = argv[3];
  configuration.bundle_identifier = "com.example.tv";
  configuration.bundle_name = "Example TV";
  expect(jx_configure(&configuration));

  expect(jx_register_module("JXMobileConsent"));  // done by a consent module
  expect(jx_server_side_create(1, "source-key", JX_BEHAVIOUR_DEFAULT, NULL, &library));
  browse();  // sent without a user block: consent is still unknown

  expect(jx_set_consent_id("consent-1"));
  expect(jx_enable(library));
  expect(jx_set_permanent(library, "store", "uk"));
  shop();
  expect(jx_application_did_enter_background());
  expect(jx_application_will_enter_foreground());
  watch();

  flushed = jx_flush(5000);
  print_counters();
  expect(jx_server_side_free(library));
  return failures == 0 && flushed == JX_OK && jx_handle_count() == 0 ? 0 : 1;
}
