// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/events/catalogue/ExpectedCatalogue.h"

#include <utility>

namespace jx::test {
namespace {

ExpectedField text(std::string_view key, std::string_view property) {
  return {"text", key, property};
}
ExpectedField number(std::string_view key, std::string_view property) {
  return {"number", key, property};
}
ExpectedField flag(std::string_view key, std::string_view property) {
  return {"flag", key, property};
}
ExpectedField texts(std::string_view key, std::string_view property) {
  return {"list of texts", key, property};
}
ExpectedField numbered(std::string_view prefix, std::string_view property) {
  return {"numbered texts", prefix, property};
}
ExpectedField values(std::string_view key, std::string_view property) {
  return {"list of values", key, property};
}
ExpectedField items(std::string_view key, std::string_view property) {
  return {"items", key, property};
}
ExpectedField product(std::string_view key, std::string_view property) {
  return {"product", key, property};
}
ExpectedField choice(std::string_view key, std::string_view property,
                     std::vector<ExpectedChoice> choices) {
  return {"choice", key, property, std::move(choices)};
}

ExpectedCondition never() { return {"never"}; }
ExpectedCondition usableText(std::string_view key) { return {"usable text", key}; }
ExpectedCondition isPresent(std::string_view key) { return {"present", key}; }
ExpectedCondition hasEntries(std::string_view key) { return {"not empty", key}; }
ExpectedCondition bothOrNeither(std::string_view key, std::string_view textKey) {
  return {"together", key, textKey};
}

// Bases, and the event that a host names itself.

const ExpectedClass kEvent{
    .name = "JXEvent",
    .written = {text("event_name", "name"), text("page_name", "pageName"),
                text("page_type", "pageType")},
    .conditions = {never()},
};

const ExpectedClass kECommerceEvent{
    .name = "JXECommerceEvent",
    .base = "JXEvent",
    .unwritten = {text("currency", "currency"), items("items", "items")},
};

const ExpectedClass kCustomEvent{
    .name = "JXCustomEvent",
    .base = "JXEvent",
    .conditions = {usableText("event_name")},
};

const ExpectedClass kVideoEvent{
    .name = "JXVideoEvent",
    .base = "JXEvent",
    .written = {text("video_session_id", "videoSessionID"),
                number("cursor_position", "cursorPosition"), number("total_length", "totalLength"),
                text("video_title", "videoTitle"), text("publisher", "publisher")},
    .conditions = {never()},
};

// E-commerce.

const ExpectedClass kPurchase{
    .name = "JXPurchaseEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"purchase"},
    .written = {text("currency", "currency"), text("id", "ID"), number("value", "value"),
                number("revenue", "revenue"), number("shipping_amount", "shippingAmount"),
                number("tax_amount", "taxAmount"), text("coupon", "coupon"), text("type", "type"),
                text("payment_method", "paymentMethod"), text("status", "status"),
                text("url", "url"), items("items", "items")},
    .conditions = {hasEntries("items"), usableText("id"), isPresent("revenue"), isPresent("value"),
                   usableText("currency"), usableText("type"), usableText("payment_method"),
                   usableText("status")},
};

const ExpectedClass kRefund{
    .name = "JXRefundEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"refund"},
    .written = {text("currency", "currency"), number("value", "value"), text("id", "ID"),
                number("revenue", "revenue"), number("shipping_amount", "shippingAmount"),
                number("tax_amount", "taxAmount"), text("type", "type"), text("url", "url"),
                text("coupon", "coupon"), items("items", "items")},
    .conditions = {hasEntries("items")},
};

const ExpectedClass kAddToCart{
    .name = "JXAddToCartEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_to_cart"},
    .written = {text("currency", "currency"), number("value", "value"), items("items", "items")},
    .conditions = {hasEntries("items"), isPresent("value"), usableText("currency")},
};

const ExpectedClass kRemoveFromCart{
    .name = "JXRemoveFromCartEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"remove_from_cart"},
    .written = {number("value", "value"), text("currency", "currency"), items("items", "items")},
    .conditions = {hasEntries("items")},
};

const ExpectedClass kViewCart{
    .name = "JXViewCartEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"view_cart"},
    .written = {text("currency", "currency"), number("value", "value"), items("items", "items")},
    .conditions = {hasEntries("items")},
};

const ExpectedClass kViewItem{
    .name = "JXViewItem",
    .base = "JXECommerceEvent",
    .eventNames = {"view_item"},
    .written = {text("currency", "currency"), number("revenue", "revenue"),
                items("items", "items")},
    .conditions = {hasEntries("items"), isPresent("revenue"), usableText("currency")},
};

const ExpectedClass kAddToWishlist{
    .name = "JXAddToWishlistEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_to_wishlist"},
    .written = {number("value", "value"), text("currency", "currency"), items("items", "items")},
    .conditions = {hasEntries("items")},
};

const ExpectedClass kBeginCheckout{
    .name = "JXBeginCheckoutEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"begin_checkout"},
    .written = {number("value", "value"), number("revenue", "revenue"),
                text("currency", "currency"), text("coupon", "coupon"), items("items", "items")},
    .conditions = {usableText("currency"), hasEntries("items"), isPresent("value"),
                   isPresent("revenue")},
};

const ExpectedClass kAddShippingInfo{
    .name = "JXAddShippingInfoEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_shipping_info"},
    .written = {text("currency", "currency"), number("value", "value"), text("coupon", "coupon"),
                text("shipping_tier", "shippingTier"), items("items", "items")},
    .conditions = {hasEntries("items"), isPresent("value"), usableText("currency")},
};

const ExpectedClass kAddPaymentInfo{
    .name = "JXAddPaymentInfoEvent",
    .base = "JXECommerceEvent",
    .eventNames = {"add_payment_info"},
    .written = {text("payment_method", "paymentMethod"), text("coupon", "coupon"),
                number("revenue", "revenue"), text("currency", "currency"), items("items", "items"),
                text("coupon", "coupon")},
    .conditions = {usableText("payment_method")},
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
            {text("page_name", "pageName"), text("page_type", "pageType")},
            {usableText("page_type")}),
      plain("JXSearchEvent", "search", {text("search_term", "searchTerm")},
            {usableText("search_term")}),
      plain("JXLoginEvent", "login", {text("method", "method")}, {}),
      plain("JXSignUpEvent", "sign_up", {text("method", "method")}, {}),
      plain("JXGenerateLeadEvent", "generate_lead",
            {text("currency", "currency"), number("value", "value"), text("id", "ID")},
            {bothOrNeither("value", "currency")}),
      plain("JXSelectContentEvent", "select_content",
            {text("content_type", "contentType"), text("item_id", "itemID")}, {}),
      plain("JXSelectItemEvent", "select_item",
            {text("item_list_name", "itemListName"), items("items", "items")},
            {hasEntries("items")}),
      plain("JXViewItemListEvent", "view_item_list",
            {text("item_list_name", "itemListName"), items("items", "items")},
            {hasEntries("items")}),
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
    .written = {text("video_player", "videoPlayer"), text("ad_type", "adtype"),
                text("image_quality", "imageQuality"),
                text("interruption_method", "interruptionMethod"),
                text("video_category", "videoCategory"), flag("full_screen", "fullScreen"),
                flag("ad_enabled", "adEnabled"), flag("livestream", "livestream"),
                values("content_asset_id", "contentAssetID"),
                values("content_pod_id", "contentPodID"), values("ad_asset_id", "adAssetID"),
                values("ad_pod_id", "adPodID"), number("seek_position", "seekPosition"),
                number("bitrate", "bitrate"), number("framerate", "framerate"),
                number("sound", "sound")},
    .conditions = {usableText("video_session_id"),
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
        {text("ad_asset_id", "adAssetID"), text("ad_pod_id", "adPodID"),
         number("pod_position", "podPosition"), number("pod_length", "podLength"),
         number("ad_quartile", "adQuartile"),
         choice("ad_type", "adType",
                {{"PRE_ROLL", "pre-roll"}, {"MID_ROLL", "mid-roll"}, {"POST_ROLL", "post-roll"}}),
         choice("load_type", "loadType", {{"DYNAMIC", "dynamic"}, {"LINEAR", "linear"}})},
    .conditions = {usableText("video_session_id"), usableText("ad_asset_id"),
                   usableText("ad_pod_id"), isPresent("cursor_position"),
                   isPresent("total_length")},
};

const ExpectedClass kVideoContent{
    .name = "JXVideoContentEvent",
    .base = "JXVideoEvent",
    .eventNames = {"video_content_start", "video_content_playing", "video_content_quarter_reached",
                   "video_content_complete"},
    .modes = {"START", "PLAYING", "QUARTER_REACHED", "COMPLETE"},
    .written = {text("content_pod_id", "contentPodID"),
                text("video_description", "videoDescription"), text("season", "season"),
                text("episode", "episode"), text("program", "program"), text("channel", "channel"),
                text("content_asset_id", "contentAssetID"), text("video_category", "videoCategory"),
                text("airdate", "airDate"), values("keywords", "keywords"),
                flag("full_episode", "fullEpisode"), flag("livestream", "livestream"),
                number("bitrate", "bitrate"), number("framerate", "framerate"),
                number("total_length", "totalLength")},
    .conditions = {usableText("video_session_id"), usableText("content_asset_id"),
                   isPresent("cursor_position"), isPresent("total_length")},
};

const ExpectedClass kVideoSetting{
    .name = "JXVideoSettingEvent",
    .base = "JXVideoEvent",
    .eventNames = {"video_volume", "video_speed", "video_subtitle_on", "video_subtitle_off",
                   "video_fullscreen_on", "video_fullscreen_off", "video_quality", "video_share"},
    .modes = {"VOLUME", "SPEED", "SUBTITLE_ON", "SUBTITLE_OFF", "FULLSCREEN_ON", "FULLSCREEN_OFF",
              "QUALITY", "SHARE"},
    .written = {text("content_pod_id", "contentPodID"),
                text("content_asset_id", "contentAssetID"),
                text("ad_asset_id", "adAssetID"),
                text("ad_pod_id", "adPodID"),
                text("ad_type", "adType"),
                text("video_description", "videoDescription"),
                text("season", "season"),
                text("episode", "episode"),
                text("video_category", "videoCategory"),
                text("program", "program"),
                text("channel", "channel"),
                text("airdate", "airdate"),
                text("image_quality", "imageQuality"),
                values("keywords", "keywords"),
                flag("full_screen", "fullScreen"),
                flag("full_episode", "fullEpisode"),
                flag("ad_enabled", "adEnabled"),
                flag("livestream", "livestream"),
                number("bitrate", "bitrate"),
                number("framerate", "framerate"),
                number("sound", "sound")},
    .conditions = {usableText("video_session_id"),
                   usableText("content_asset_id"),
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
      text("id", "ID"),
      number("quantity", "quantity"),
      text("variant", "variant"),
      number("list_position", "list_position"),
      number("discount", "discount"),
      text("coupon", "coupon"),
      text("affiliation", "affiliation"),
      product("product", "product"),
  };
  return fields;
}

const std::vector<ExpectedField>& expectedProductFields() {
  static const std::vector<ExpectedField> fields{
      text("id", "ID"),         text("size", "size"),         text("name", "name"),
      number("price", "price"), text("currency", "currency"), numbered("category_", "categories"),
      text("brand", "brand"),   texts("colors", "colors"),
  };
  return fields;
}

}  // namespace jx::test
