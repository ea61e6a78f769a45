// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/events/catalogue/ExpectedCatalogue.h"

#include <utility>

namespace jx::test {
namespace {

ExpectedField string(std::string_view key, std::string_view property) {
  return {"string", key, property};
}
ExpectedField number(std::string_view key, std::string_view property) {
  return {"number", key, property};
}
ExpectedField boolean(std::string_view key, std::string_view property) {
  return {"boolean", key, property};
}
ExpectedField strings(std::string_view key, std::string_view property) {
  return {"strings", key, property};
}
ExpectedField numbered(std::string_view prefix, std::string_view property) {
  return {"numbered strings", prefix, property};
}
ExpectedField values(std::string_view key, std::string_view property) {
  return {"values", key, property};
}
ExpectedField items(std::string_view key, std::string_view property) {
  return {"items", key, property};
}
ExpectedField product(std::string_view key, std::string_view property) {
  return {"product", key, property};
}
ExpectedField enumeration(std::string_view key, std::string_view property,
                          std::vector<ExpectedEnumerator> enumerators) {
  return {"enumeration", key, property, std::move(enumerators)};
}

ExpectedCondition never() { return {"never"}; }
ExpectedCondition nonEmptyString(std::string_view key) { return {"non-empty string", key}; }
ExpectedCondition isPresent(std::string_view key) { return {"present", key}; }
ExpectedCondition nonEmptyList(std::string_view key) { return {"non-empty list", key}; }
ExpectedCondition bothOrNeither(std::string_view key, std::string_view stringKey) {
  return {"together", key, stringKey};
}

// Base classes, and the event that the application names.

const ExpectedClass kEvent{
    .name = "JXEvent",
    .written = {string("event_name", "name"), string("page_name", "pageName"),
                string("page_type", "pageType")},
    .conditions = {never()},
};

const ExpectedClass kECommerceEvent{
    .name = "JXECommerceEvent",
    .base = "JXEvent",
    .unwritten = {string("currency", "currency"), items("items", "items")},
};

const ExpectedClass kCustomEvent{
    .name = "JXCustomEvent",
    .base = "JXEvent",
    .conditions = {nonEmptyString("event_name")},
};

const ExpectedClass kVideoEvent{
    .name = "JXVideoEvent",
    .base = "JXEvent",
    .written = {string("video_session_id", "videoSessionID"),
                number("cursor_position", "cursorPosition"), number("total_length", "totalLength"),
                string("video_title", "videoTitle"), string("publisher", "publisher")},
    .conditions = {never()},
};

// E-commerce.

const ExpectedClass kPurchase{
    .name = "JXPurchaseEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"purchase"},
    .written = {string("currency", "currency"), string("id", "ID"), number("value", "value"),
                number("revenue", "revenue"), number("shipping_amount", "shippingAmount"),
                number("tax_amount", "taxAmount"), string("coupon", "coupon"),
                string("type", "type"), string("payment_method", "paymentMethod"),
                string("status", "status"), string("url", "url"), items("items", "items")},
    .conditions = {nonEmptyList("items"), nonEmptyString("id"), isPresent("revenue"),
                   isPresent("value"), nonEmptyString("currency"), nonEmptyString("type"),
                   nonEmptyString("payment_method"), nonEmptyString("status")},
};

const ExpectedClass kRefund{
    .name = "JXRefundEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"refund"},
    .written = {string("currency", "currency"), number("value", "value"), string("id", "ID"),
                number("revenue", "revenue"), number("shipping_amount", "shippingAmount"),
                number("tax_amount", "taxAmount"), string("type", "type"), string("url", "url"),
                string("coupon", "coupon"), items("items", "items")},
    .conditions = {nonEmptyList("items")},
};

const ExpectedClass kAddToCart{
    .name = "JXAddToCartEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_to_cart"},
    .written = {string("currency", "currency"), number("value", "value"), items("items", "items")},
    .conditions = {nonEmptyList("items"), isPresent("value"), nonEmptyString("currency")},
};

const ExpectedClass kRemoveFromCart{
    .name = "JXRemoveFromCartEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"remove_from_cart"},
    .written = {number("value", "value"), string("currency", "currency"), items("items", "items")},
    .conditions = {nonEmptyList("items")},
};

const ExpectedClass kViewCart{
    .name = "JXViewCartEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"view_cart"},
    .written = {string("currency", "currency"), number("value", "value"), items("items", "items")},
    .conditions = {nonEmptyList("items")},
};

const ExpectedClass kViewItem{
    .name = "JXViewItem",
    .base = "JXECommerceEvent",
    .eventNames = {"view_item"},
    .written = {string("currency", "currency"), number("revenue", "revenue"),
                items("items", "items")},
    .conditions = {nonEmptyList("items"), isPresent("revenue"), nonEmptyString("currency")},
};

const ExpectedClass kAddToWishlist{
    .name = "JXAddToWishlistEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_to_wishlist"},
    .written = {number("value", "value"), string("currency", "currency"), items("items", "items")},
    .conditions = {nonEmptyList("items")},
};

const ExpectedClass kBeginCheckout{
    .name = "JXBeginCheckoutEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"begin_checkout"},
    .written = {number("value", "value"), number("revenue", "revenue"),
                string("currency", "currency"), string("coupon", "coupon"),
                items("items", "items")},
    .conditions = {nonEmptyString("currency"), nonEmptyList("items"), isPresent("value"),
                   isPresent("revenue")},
};

const ExpectedClass kAddShippingInfo{
    .name = "JXAddShippingInfoEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_shipping_info"},
    .written = {string("currency", "currency"), number("value", "value"),
                string("coupon", "coupon"), string("shipping_tier", "shippingTier"),
                items("items", "items")},
    .conditions = {nonEmptyList("items"), isPresent("value"), nonEmptyString("currency")},
};

const ExpectedClass kAddPaymentInfo{
    .name = "JXAddPaymentInfoEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_payment_info"},
    .written = {string("payment_method", "paymentMethod"), string("coupon", "coupon"),
                number("revenue", "revenue"), string("currency", "currency"),
                items("items", "items"), string("coupon", "coupon")},
    .conditions = {nonEmptyString("payment_method")},
};

// Engagement.

ExpectedClass plain(std::string_view name, std::string_view eventName,
                    std::vector<ExpectedField> written, std::vector<ExpectedCondition> conditions) {
  return {.name = name,
          .base = "JXEvent",
          .eventNames = {eventName},
          .written = std::move(written),
          .conditions = std::move(conditions)};
}

std::vector<ExpectedClass> engagementClasses() {
  return {
      plain("JXPageViewEvent", "page_view",
            {string("page_name", "pageName"), string("page_type", "pageType")},
            {nonEmptyString("page_type")}),
      plain("JXSearchEvent", "search", {string("search_term", "searchTerm")},
            {nonEmptyString("search_term")}),
      plain("JXLoginEvent", "login", {string("method", "method")}, {}),
      plain("JXSignUpEvent", "sign_up", {string("method", "method")}, {}),
      plain("JXGenerateLeadEvent", "generate_lead",
            {string("currency", "currency"), number("value", "value"), string("id", "ID")},
            {bothOrNeither("value", "currency")}),
      plain("JXSelectContentEvent", "select_content",
            {string("content_type", "contentType"), string("item_id", "itemID")}, {}),
      plain("JXSelectItemEvent", "select_item",
            {string("item_list_name", "itemListName"), items("items", "items")},
            {nonEmptyList("items")}),
      plain("JXViewItemListEvent", "view_item_list",
            {string("item_list_name", "itemListName"), items("items", "items")},
            {nonEmptyList("items")}),
  };
}

// Video.

const ExpectedClass kVideoPlayback{
    .name = "JXVideoPlaybackEvent",
    .base = "JXVideoEvent",
    .eventNames = {"video_start", "video_pause", "video_error", "video_buffer_start",
                   "video_buffer_complete", "video_seek_start", "video_seek_complete",
                   "video_resume", "video_complete"},
    .modes = {"START", "PAUSE", "ERROR", "BUFFER_START", "BUFFER_COMPLETE", "SEEK_START",
              "SEEK_COMPLETE", "RESUME", "COMPLETE"},
    .written = {string("video_player", "videoPlayer"), string("ad_type", "adtype"),
                string("image_quality", "imageQuality"),
                string("interruption_method", "interruptionMethod"),
                string("video_category", "videoCategory"), boolean("full_screen", "fullScreen"),
                boolean("ad_enabled", "adEnabled"), boolean("livestream", "livestream"),
                values("content_asset_id", "contentAssetID"),
                values("content_pod_id", "contentPodID"), values("ad_asset_id", "adAssetID"),
                values("ad_pod_id", "adPodID"), number("seek_position", "seekPosition"),
                number("bitrate", "bitrate"), number("framerate", "framerate"),
                number("sound", "sound")},
    .conditions = {nonEmptyString("video_session_id"),
                   isPresent("content_asset_id"),
                   {.kind = "present",
                    .key = "cursor_position",
                    .exceptFor = {"video_buffer_start", "video_buffer_complete"}},
                   isPresent("total_length")},
};

const ExpectedClass kVideoAd{
    .name = "JXVideoAdEvent",
    .base = "JXVideoEvent",
    .eventNames = {"video_ad_start", "video_ad_playing", "video_ad_stop", "video_ad_complete",
                   "video_ad_skip", "video_ad_break_start", "video_ad_break_complete",
                   "video_ad_click"},
    .modes = {"START", "PLAYING", "STOP", "COMPLETE", "SKIP", "BREAK_START", "BREAK_COMPLETE",
              "CLICK"},
    .written =
        {string("ad_asset_id", "adAssetID"), string("ad_pod_id", "adPodID"),
         number("pod_position", "podPosition"), number("pod_length", "podLength"),
         number("ad_quartile", "adQuartile"),
         enumeration(
             "ad_type", "adType",
             {{"PRE_ROLL", "pre-roll"}, {"MID_ROLL", "mid-roll"}, {"POST_ROLL", "post-roll"}}),
         enumeration("load_type", "loadType", {{"DYNAMIC", "dynamic"}, {"LINEAR", "linear"}})},
    .conditions = {nonEmptyString("video_session_id"), nonEmptyString("ad_asset_id"),
                   nonEmptyString("ad_pod_id"), isPresent("cursor_position"),
                   isPresent("total_length")},
};

const ExpectedClass kVideoContent{
    .name = "JXVideoContentEvent",
    .base = "JXVideoEvent",
    .eventNames = {"video_content_start", "video_content_playing", "video_content_quarter_reached",
                   "video_content_complete"},
    .modes = {"START", "PLAYING", "QUARTER_REACHED", "COMPLETE"},
    .written = {string("content_pod_id", "contentPodID"),
                string("video_description", "videoDescription"), string("season", "season"),
                string("episode", "episode"), string("program", "program"),
                string("channel", "channel"), string("content_asset_id", "contentAssetID"),
                string("video_category", "videoCategory"), string("airdate", "airDate"),
                values("keywords", "keywords"), boolean("full_episode", "fullEpisode"),
                boolean("livestream", "livestream"), number("bitrate", "bitrate"),
                number("framerate", "framerate"), number("total_length", "totalLength")},
    .conditions = {nonEmptyString("video_session_id"), nonEmptyString("content_asset_id"),
                   isPresent("cursor_position"), isPresent("total_length")},
};

const ExpectedClass kVideoSetting{
    .name = "JXVideoSettingEvent",
    .base = "JXVideoEvent",
    .eventNames = {"video_volume", "video_speed", "video_subtitle_on", "video_subtitle_off",
                   "video_fullscreen_on", "video_fullscreen_off", "video_quality", "video_share"},
    .modes = {"VOLUME", "SPEED", "SUBTITLE_ON", "SUBTITLE_OFF", "FULLSCREEN_ON", "FULLSCREEN_OFF",
              "QUALITY", "SHARE"},
    .written = {string("content_pod_id", "contentPodID"),
                string("content_asset_id", "contentAssetID"),
                string("ad_asset_id", "adAssetID"),
                string("ad_pod_id", "adPodID"),
                string("ad_type", "adType"),
                string("video_description", "videoDescription"),
                string("season", "season"),
                string("episode", "episode"),
                string("video_category", "videoCategory"),
                string("program", "program"),
                string("channel", "channel"),
                string("airdate", "airdate"),
                string("image_quality", "imageQuality"),
                values("keywords", "keywords"),
                boolean("full_screen", "fullScreen"),
                boolean("full_episode", "fullEpisode"),
                boolean("ad_enabled", "adEnabled"),
                boolean("livestream", "livestream"),
                number("bitrate", "bitrate"),
                number("framerate", "framerate"),
                number("sound", "sound")},
    .conditions = {nonEmptyString("video_session_id"),
                   nonEmptyString("content_asset_id"),
                   isPresent("cursor_position"),
                   isPresent("bitrate"),
                   {.kind = "present", .key = "sound", .onlyFor = {"video_volume"}}},
};

}  // namespace

const std::vector<ExpectedClass>& expectedClasses() {
  static const std::vector<ExpectedClass> classes = [] {
    std::vector<ExpectedClass> all{
        kEvent,         kECommerceEvent, kCustomEvent,     kVideoEvent,     kPurchase,
        kRefund,        kAddToCart,      kRemoveFromCart,  kViewCart,       kViewItem,
        kAddToWishlist, kBeginCheckout,  kAddShippingInfo, kAddPaymentInfo, kVideoPlayback,
        kVideoAd,       kVideoContent,   kVideoSetting};
    const std::vector<ExpectedClass> engagement = engagementClasses();
    all.insert(all.end(), engagement.begin(), engagement.end());
    return all;
  }();
  return classes;
}

const std::vector<ExpectedField>& expectedItemFields() {
  static const std::vector<ExpectedField> fields{
      string("id", "ID"),
      number("quantity", "quantity"),
      string("variant", "variant"),
      number("list_position", "list_position"),
      number("discount", "discount"),
      string("coupon", "coupon"),
      string("affiliation", "affiliation"),
      product("product", "product"),
  };
  return fields;
}

const std::vector<ExpectedField>& expectedProductFields() {
  static const std::vector<ExpectedField> fields{
      string("id", "ID"),       string("size", "size"),         string("name", "name"),
      number("price", "price"), string("currency", "currency"), numbered("category_", "categories"),
      string("brand", "brand"), strings("colors", "colors"),
  };
  return fields;
}

}  // namespace jx::test
