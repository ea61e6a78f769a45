// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#pragma once

#include "jx/c/jx_catalogue.h"

namespace jx::c {

inline constexpr const char* kEJXVideoPlaybackMode[] = {
    "START",      "PAUSE",         "ERROR",  "BUFFER_START", "BUFFER_COMPLETE",
    "SEEK_START", "SEEK_COMPLETE", "RESUME", "COMPLETE"};
inline constexpr const char* kEJXVideoAdMode[] = {
    "START", "PLAYING", "STOP", "COMPLETE", "SKIP", "BREAK_START", "BREAK_COMPLETE", "CLICK"};
inline constexpr const char* kEJXVideoContentMode[] = {"START", "PLAYING", "QUARTER_REACHED",
                                                       "COMPLETE"};
inline constexpr const char* kEJXVideoSettingMode[] = {
    "VOLUME",        "SPEED",          "SUBTITLE_ON", "SUBTITLE_OFF",
    "FULLSCREEN_ON", "FULLSCREEN_OFF", "QUALITY",     "SHARE"};
inline constexpr const char* kEJXAdType[] = {"PRE_ROLL", "MID_ROLL", "POST_ROLL"};
inline constexpr const char* kEJXAdLoadType[] = {"DYNAMIC", "LINEAR"};
inline constexpr jx_field kJXEventFields[] = {
    {"name", "event_name", JX_KIND_STRING, true, nullptr, 0},
    {"pageName", "page_name", JX_KIND_STRING, true, nullptr, 0},
    {"pageType", "page_type", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr jx_class kJXEvent = {"JXEvent", nullptr, true, kJXEventFields, 3, nullptr,
                                      0,         nullptr, 0};

inline constexpr jx_field kJXECommerceEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, false, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, false, nullptr, 0},
};
inline constexpr jx_class kJXECommerceEvent = {
    "JXECommerceEvent", &kJXEvent, true, kJXECommerceEventFields, 2, nullptr, 0, nullptr, 0};

inline constexpr jx_field kJXVideoEventFields[] = {
    {"videoSessionID", "video_session_id", JX_KIND_STRING, true, nullptr, 0},
    {"cursorPosition", "cursor_position", JX_KIND_NUMBER, true, nullptr, 0},
    {"totalLength", "total_length", JX_KIND_NUMBER, true, nullptr, 0},
    {"videoTitle", "video_title", JX_KIND_STRING, true, nullptr, 0},
    {"publisher", "publisher", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr jx_class kJXVideoEvent = {
    "JXVideoEvent", &kJXEvent, true, kJXVideoEventFields, 5, nullptr, 0, nullptr, 0};

inline constexpr jx_class kJXCustomEvent = {"JXCustomEvent", &kJXEvent, true,    nullptr, 0,
                                            nullptr,         0,         nullptr, 0};

inline constexpr jx_field kJXViewItemFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"revenue", "revenue", JX_KIND_NUMBER, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXViewItemNames[] = {"view_item"};
inline constexpr jx_class kJXViewItem = {
    "JXViewItem", &kJXECommerceEvent, true, kJXViewItemFields, 3, kJXViewItemNames, 1, nullptr, 0};

inline constexpr jx_field kJXAddToWishlistEventFields[] = {
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXAddToWishlistEventNames[] = {"add_to_wishlist"};
inline constexpr jx_class kJXAddToWishlistEvent = {"JXAddToWishlistEvent",
                                                   &kJXECommerceEvent,
                                                   true,
                                                   kJXAddToWishlistEventFields,
                                                   3,
                                                   kJXAddToWishlistEventNames,
                                                   1,
                                                   nullptr,
                                                   0};

inline constexpr jx_field kJXAddToCartEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXAddToCartEventNames[] = {"add_to_cart"};
inline constexpr jx_class kJXAddToCartEvent = {"JXAddToCartEvent",
                                               &kJXECommerceEvent,
                                               true,
                                               kJXAddToCartEventFields,
                                               3,
                                               kJXAddToCartEventNames,
                                               1,
                                               nullptr,
                                               0};

inline constexpr jx_field kJXRemoveFromCartEventFields[] = {
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXRemoveFromCartEventNames[] = {"remove_from_cart"};
inline constexpr jx_class kJXRemoveFromCartEvent = {"JXRemoveFromCartEvent",
                                                    &kJXECommerceEvent,
                                                    true,
                                                    kJXRemoveFromCartEventFields,
                                                    3,
                                                    kJXRemoveFromCartEventNames,
                                                    1,
                                                    nullptr,
                                                    0};

inline constexpr jx_field kJXViewCartEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXViewCartEventNames[] = {"view_cart"};
inline constexpr jx_class kJXViewCartEvent = {"JXViewCartEvent",
                                              &kJXECommerceEvent,
                                              true,
                                              kJXViewCartEventFields,
                                              3,
                                              kJXViewCartEventNames,
                                              1,
                                              nullptr,
                                              0};

inline constexpr jx_field kJXBeginCheckoutEventFields[] = {
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"revenue", "revenue", JX_KIND_NUMBER, true, nullptr, 0},
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXBeginCheckoutEventNames[] = {"begin_checkout"};
inline constexpr jx_class kJXBeginCheckoutEvent = {"JXBeginCheckoutEvent",
                                                   &kJXECommerceEvent,
                                                   true,
                                                   kJXBeginCheckoutEventFields,
                                                   5,
                                                   kJXBeginCheckoutEventNames,
                                                   1,
                                                   nullptr,
                                                   0};

inline constexpr jx_field kJXAddShippingInfoEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
    {"shippingTier", "shipping_tier", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXAddShippingInfoEventNames[] = {"add_shipping_info"};
inline constexpr jx_class kJXAddShippingInfoEvent = {"JXAddShippingInfoEvent",
                                                     &kJXECommerceEvent,
                                                     true,
                                                     kJXAddShippingInfoEventFields,
                                                     5,
                                                     kJXAddShippingInfoEventNames,
                                                     1,
                                                     nullptr,
                                                     0};

inline constexpr jx_field kJXAddPaymentInfoEventFields[] = {
    {"paymentMethod", "payment_method", JX_KIND_STRING, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
    {"revenue", "revenue", JX_KIND_NUMBER, true, nullptr, 0},
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXAddPaymentInfoEventNames[] = {"add_payment_info"};
inline constexpr jx_class kJXAddPaymentInfoEvent = {"JXAddPaymentInfoEvent",
                                                    &kJXECommerceEvent,
                                                    true,
                                                    kJXAddPaymentInfoEventFields,
                                                    6,
                                                    kJXAddPaymentInfoEventNames,
                                                    1,
                                                    nullptr,
                                                    0};

inline constexpr jx_field kJXPurchaseEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"ID", "id", JX_KIND_STRING, true, nullptr, 0},
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"revenue", "revenue", JX_KIND_NUMBER, true, nullptr, 0},
    {"shippingAmount", "shipping_amount", JX_KIND_NUMBER, true, nullptr, 0},
    {"taxAmount", "tax_amount", JX_KIND_NUMBER, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
    {"type", "type", JX_KIND_STRING, true, nullptr, 0},
    {"paymentMethod", "payment_method", JX_KIND_STRING, true, nullptr, 0},
    {"status", "status", JX_KIND_STRING, true, nullptr, 0},
    {"url", "url", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXPurchaseEventNames[] = {"purchase"};
inline constexpr jx_class kJXPurchaseEvent = {"JXPurchaseEvent",
                                              &kJXECommerceEvent,
                                              true,
                                              kJXPurchaseEventFields,
                                              12,
                                              kJXPurchaseEventNames,
                                              1,
                                              nullptr,
                                              0};

inline constexpr jx_field kJXRefundEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"ID", "id", JX_KIND_STRING, true, nullptr, 0},
    {"revenue", "revenue", JX_KIND_NUMBER, true, nullptr, 0},
    {"shippingAmount", "shipping_amount", JX_KIND_NUMBER, true, nullptr, 0},
    {"taxAmount", "tax_amount", JX_KIND_NUMBER, true, nullptr, 0},
    {"type", "type", JX_KIND_STRING, true, nullptr, 0},
    {"url", "url", JX_KIND_STRING, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXRefundEventNames[] = {"refund"};
inline constexpr jx_class kJXRefundEvent = {"JXRefundEvent",
                                            &kJXECommerceEvent,
                                            true,
                                            kJXRefundEventFields,
                                            10,
                                            kJXRefundEventNames,
                                            1,
                                            nullptr,
                                            0};

inline constexpr jx_field kJXPageViewEventFields[] = {
    {"pageName", "page_name", JX_KIND_STRING, true, nullptr, 0},
    {"pageType", "page_type", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXPageViewEventNames[] = {"page_view"};
inline constexpr jx_class kJXPageViewEvent = {
    "JXPageViewEvent", &kJXEvent, true, kJXPageViewEventFields, 2, kJXPageViewEventNames, 1,
    nullptr,           0};

inline constexpr jx_field kJXSearchEventFields[] = {
    {"searchTerm", "search_term", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXSearchEventNames[] = {"search"};
inline constexpr jx_class kJXSearchEvent = {
    "JXSearchEvent", &kJXEvent, true, kJXSearchEventFields, 1, kJXSearchEventNames, 1, nullptr, 0};

inline constexpr jx_field kJXLoginEventFields[] = {
    {"method", "method", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXLoginEventNames[] = {"login"};
inline constexpr jx_class kJXLoginEvent = {
    "JXLoginEvent", &kJXEvent, true, kJXLoginEventFields, 1, kJXLoginEventNames, 1, nullptr, 0};

inline constexpr jx_field kJXSignUpEventFields[] = {
    {"method", "method", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXSignUpEventNames[] = {"sign_up"};
inline constexpr jx_class kJXSignUpEvent = {
    "JXSignUpEvent", &kJXEvent, true, kJXSignUpEventFields, 1, kJXSignUpEventNames, 1, nullptr, 0};

inline constexpr jx_field kJXGenerateLeadEventFields[] = {
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"value", "value", JX_KIND_NUMBER, true, nullptr, 0},
    {"ID", "id", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXGenerateLeadEventNames[] = {"generate_lead"};
inline constexpr jx_class kJXGenerateLeadEvent = {"JXGenerateLeadEvent",
                                                  &kJXEvent,
                                                  true,
                                                  kJXGenerateLeadEventFields,
                                                  3,
                                                  kJXGenerateLeadEventNames,
                                                  1,
                                                  nullptr,
                                                  0};

inline constexpr jx_field kJXSelectContentEventFields[] = {
    {"contentType", "content_type", JX_KIND_STRING, true, nullptr, 0},
    {"itemID", "item_id", JX_KIND_STRING, true, nullptr, 0},
};
inline constexpr const char* kJXSelectContentEventNames[] = {"select_content"};
inline constexpr jx_class kJXSelectContentEvent = {"JXSelectContentEvent",
                                                   &kJXEvent,
                                                   true,
                                                   kJXSelectContentEventFields,
                                                   2,
                                                   kJXSelectContentEventNames,
                                                   1,
                                                   nullptr,
                                                   0};

inline constexpr jx_field kJXSelectItemEventFields[] = {
    {"itemListName", "item_list_name", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXSelectItemEventNames[] = {"select_item"};
inline constexpr jx_class kJXSelectItemEvent = {"JXSelectItemEvent",
                                                &kJXEvent,
                                                true,
                                                kJXSelectItemEventFields,
                                                2,
                                                kJXSelectItemEventNames,
                                                1,
                                                nullptr,
                                                0};

inline constexpr jx_field kJXViewItemListEventFields[] = {
    {"itemListName", "item_list_name", JX_KIND_STRING, true, nullptr, 0},
    {"items", "items", JX_KIND_ITEMS, true, nullptr, 0},
};
inline constexpr const char* kJXViewItemListEventNames[] = {"view_item_list"};
inline constexpr jx_class kJXViewItemListEvent = {"JXViewItemListEvent",
                                                  &kJXEvent,
                                                  true,
                                                  kJXViewItemListEventFields,
                                                  2,
                                                  kJXViewItemListEventNames,
                                                  1,
                                                  nullptr,
                                                  0};

inline constexpr jx_field kJXVideoPlaybackEventFields[] = {
    {"videoPlayer", "video_player", JX_KIND_STRING, true, nullptr, 0},
    {"adtype", "ad_type", JX_KIND_STRING, true, nullptr, 0},
    {"imageQuality", "image_quality", JX_KIND_STRING, true, nullptr, 0},
    {"interruptionMethod", "interruption_method", JX_KIND_STRING, true, nullptr, 0},
    {"videoCategory", "video_category", JX_KIND_STRING, true, nullptr, 0},
    {"fullScreen", "full_screen", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"adEnabled", "ad_enabled", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"livestream", "livestream", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"contentAssetID", "content_asset_id", JX_KIND_VALUES, true, nullptr, 0},
    {"contentPodID", "content_pod_id", JX_KIND_VALUES, true, nullptr, 0},
    {"adAssetID", "ad_asset_id", JX_KIND_VALUES, true, nullptr, 0},
    {"adPodID", "ad_pod_id", JX_KIND_VALUES, true, nullptr, 0},
    {"seekPosition", "seek_position", JX_KIND_NUMBER, true, nullptr, 0},
    {"bitrate", "bitrate", JX_KIND_NUMBER, true, nullptr, 0},
    {"framerate", "framerate", JX_KIND_NUMBER, true, nullptr, 0},
    {"sound", "sound", JX_KIND_NUMBER, true, nullptr, 0},
};
inline constexpr const char* kJXVideoPlaybackEventNames[] = {
    "video_start",         "video_pause",           "video_error",
    "video_buffer_start",  "video_buffer_complete", "video_seek_start",
    "video_seek_complete", "video_resume",          "video_complete"};
inline constexpr jx_class kJXVideoPlaybackEvent = {"JXVideoPlaybackEvent",
                                                   &kJXVideoEvent,
                                                   true,
                                                   kJXVideoPlaybackEventFields,
                                                   16,
                                                   kJXVideoPlaybackEventNames,
                                                   9,
                                                   kEJXVideoPlaybackMode,
                                                   9};

inline constexpr jx_field kJXVideoAdEventFields[] = {
    {"adAssetID", "ad_asset_id", JX_KIND_STRING, true, nullptr, 0},
    {"adPodID", "ad_pod_id", JX_KIND_STRING, true, nullptr, 0},
    {"podPosition", "pod_position", JX_KIND_NUMBER, true, nullptr, 0},
    {"podLength", "pod_length", JX_KIND_NUMBER, true, nullptr, 0},
    {"adQuartile", "ad_quartile", JX_KIND_NUMBER, true, nullptr, 0},
    {"adType", "ad_type", JX_KIND_ENUM, true, kEJXAdType, 3},
    {"loadType", "load_type", JX_KIND_ENUM, true, kEJXAdLoadType, 2},
};
inline constexpr const char* kJXVideoAdEventNames[] = {
    "video_ad_start", "video_ad_playing",     "video_ad_stop",           "video_ad_complete",
    "video_ad_skip",  "video_ad_break_start", "video_ad_break_complete", "video_ad_click"};
inline constexpr jx_class kJXVideoAdEvent = {"JXVideoAdEvent",
                                             &kJXVideoEvent,
                                             true,
                                             kJXVideoAdEventFields,
                                             7,
                                             kJXVideoAdEventNames,
                                             8,
                                             kEJXVideoAdMode,
                                             8};

inline constexpr jx_field kJXVideoContentEventFields[] = {
    {"contentPodID", "content_pod_id", JX_KIND_STRING, true, nullptr, 0},
    {"videoDescription", "video_description", JX_KIND_STRING, true, nullptr, 0},
    {"season", "season", JX_KIND_STRING, true, nullptr, 0},
    {"episode", "episode", JX_KIND_STRING, true, nullptr, 0},
    {"program", "program", JX_KIND_STRING, true, nullptr, 0},
    {"channel", "channel", JX_KIND_STRING, true, nullptr, 0},
    {"contentAssetID", "content_asset_id", JX_KIND_STRING, true, nullptr, 0},
    {"videoCategory", "video_category", JX_KIND_STRING, true, nullptr, 0},
    {"airDate", "airdate", JX_KIND_STRING, true, nullptr, 0},
    {"keywords", "keywords", JX_KIND_VALUES, true, nullptr, 0},
    {"fullEpisode", "full_episode", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"livestream", "livestream", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"bitrate", "bitrate", JX_KIND_NUMBER, true, nullptr, 0},
    {"framerate", "framerate", JX_KIND_NUMBER, true, nullptr, 0},
    {"totalLength", "total_length", JX_KIND_NUMBER, true, nullptr, 0},
};
inline constexpr const char* kJXVideoContentEventNames[] = {
    "video_content_start", "video_content_playing", "video_content_quarter_reached",
    "video_content_complete"};
inline constexpr jx_class kJXVideoContentEvent = {"JXVideoContentEvent",
                                                  &kJXVideoEvent,
                                                  true,
                                                  kJXVideoContentEventFields,
                                                  15,
                                                  kJXVideoContentEventNames,
                                                  4,
                                                  kEJXVideoContentMode,
                                                  4};

inline constexpr jx_field kJXVideoSettingEventFields[] = {
    {"contentPodID", "content_pod_id", JX_KIND_STRING, true, nullptr, 0},
    {"contentAssetID", "content_asset_id", JX_KIND_STRING, true, nullptr, 0},
    {"adAssetID", "ad_asset_id", JX_KIND_STRING, true, nullptr, 0},
    {"adPodID", "ad_pod_id", JX_KIND_STRING, true, nullptr, 0},
    {"adType", "ad_type", JX_KIND_STRING, true, nullptr, 0},
    {"videoDescription", "video_description", JX_KIND_STRING, true, nullptr, 0},
    {"season", "season", JX_KIND_STRING, true, nullptr, 0},
    {"episode", "episode", JX_KIND_STRING, true, nullptr, 0},
    {"videoCategory", "video_category", JX_KIND_STRING, true, nullptr, 0},
    {"program", "program", JX_KIND_STRING, true, nullptr, 0},
    {"channel", "channel", JX_KIND_STRING, true, nullptr, 0},
    {"airdate", "airdate", JX_KIND_STRING, true, nullptr, 0},
    {"imageQuality", "image_quality", JX_KIND_STRING, true, nullptr, 0},
    {"keywords", "keywords", JX_KIND_VALUES, true, nullptr, 0},
    {"fullScreen", "full_screen", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"fullEpisode", "full_episode", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"adEnabled", "ad_enabled", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"livestream", "livestream", JX_KIND_BOOLEAN, true, nullptr, 0},
    {"bitrate", "bitrate", JX_KIND_NUMBER, true, nullptr, 0},
    {"framerate", "framerate", JX_KIND_NUMBER, true, nullptr, 0},
    {"sound", "sound", JX_KIND_NUMBER, true, nullptr, 0},
};
inline constexpr const char* kJXVideoSettingEventNames[] = {
    "video_volume",        "video_speed",          "video_subtitle_on", "video_subtitle_off",
    "video_fullscreen_on", "video_fullscreen_off", "video_quality",     "video_share"};
inline constexpr jx_class kJXVideoSettingEvent = {"JXVideoSettingEvent",
                                                  &kJXVideoEvent,
                                                  true,
                                                  kJXVideoSettingEventFields,
                                                  21,
                                                  kJXVideoSettingEventNames,
                                                  8,
                                                  kEJXVideoSettingMode,
                                                  8};

inline constexpr jx_field kJXItemFields[] = {
    {"ID", "id", JX_KIND_STRING, true, nullptr, 0},
    {"quantity", "quantity", JX_KIND_NUMBER, true, nullptr, 0},
    {"variant", "variant", JX_KIND_STRING, true, nullptr, 0},
    {"list_position", "list_position", JX_KIND_NUMBER, true, nullptr, 0},
    {"discount", "discount", JX_KIND_NUMBER, true, nullptr, 0},
    {"coupon", "coupon", JX_KIND_STRING, true, nullptr, 0},
    {"affiliation", "affiliation", JX_KIND_STRING, true, nullptr, 0},
    {"product", "product", JX_KIND_PRODUCT, true, nullptr, 0},
};
inline constexpr jx_class kJXItem = {"JXItem", nullptr, false, kJXItemFields, 8, nullptr,
                                     0,        nullptr, 0};

inline constexpr jx_field kJXProductFields[] = {
    {"ID", "id", JX_KIND_STRING, true, nullptr, 0},
    {"size", "size", JX_KIND_STRING, true, nullptr, 0},
    {"name", "name", JX_KIND_STRING, true, nullptr, 0},
    {"price", "price", JX_KIND_NUMBER, true, nullptr, 0},
    {"currency", "currency", JX_KIND_STRING, true, nullptr, 0},
    {"categories", "category_", JX_KIND_NUMBERED_STRINGS, true, nullptr, 0},
    {"brand", "brand", JX_KIND_STRING, true, nullptr, 0},
    {"colors", "colors", JX_KIND_STRINGS, true, nullptr, 0},
};
inline constexpr jx_class kJXProduct = {"JXProduct", nullptr, false, kJXProductFields, 8, nullptr,
                                        0,           nullptr, 0};

inline constexpr const jx_class* kClasses[] = {&kJXEvent,
                                               &kJXECommerceEvent,
                                               &kJXVideoEvent,
                                               &kJXCustomEvent,
                                               &kJXViewItem,
                                               &kJXAddToWishlistEvent,
                                               &kJXAddToCartEvent,
                                               &kJXRemoveFromCartEvent,
                                               &kJXViewCartEvent,
                                               &kJXBeginCheckoutEvent,
                                               &kJXAddShippingInfoEvent,
                                               &kJXAddPaymentInfoEvent,
                                               &kJXPurchaseEvent,
                                               &kJXRefundEvent,
                                               &kJXPageViewEvent,
                                               &kJXSearchEvent,
                                               &kJXLoginEvent,
                                               &kJXSignUpEvent,
                                               &kJXGenerateLeadEvent,
                                               &kJXSelectContentEvent,
                                               &kJXSelectItemEvent,
                                               &kJXViewItemListEvent,
                                               &kJXVideoPlaybackEvent,
                                               &kJXVideoAdEvent,
                                               &kJXVideoContentEvent,
                                               &kJXVideoSettingEvent,
                                               &kJXItem,
                                               &kJXProduct};

}  // namespace jx::c
