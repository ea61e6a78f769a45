// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/DemoScript.h"

namespace jx {
namespace {

// Two events are invalid on purpose, so that the inspector shows diagnostics: the first purchase
// has neither a type nor a status, and the third quarter has a string as its position. One event is
// executed without consent and ignored. One event is executed and queued in the background; the
// application returns late enough for a new session.
constexpr std::string_view kScript = R"json(
{"do":"permanent","key":"profile","value":"living room"}
{"do":"event","class":"JXCustomEvent","name":"app_start","parameters":{"launch":"home screen","cold":true}}
{"do":"advance","ms":3200}
{"do":"event","class":"JXPageViewEvent","fields":{"pageName":"home","pageType":"landing"},"parameters":{"rows":12}}
{"do":"advance","ms":21800}
{"do":"event","class":"JXSearchEvent","fields":{"pageName":"search","searchTerm":"lighthouse"},"parameters":{"results":7}}
{"do":"advance","ms":6100}
{"do":"event","class":"JXViewItemListEvent","fields":{"pageName":"shop","itemListName":"found for lighthouse","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}},{"ID":"2","quantity":2,"list_position":2,"product":{"ID":"mug-07","name":"Lighthouse mug","price":"12.50","currency":"EUR","categories":["kitchen"]}}]}}
{"do":"advance","ms":8400}
{"do":"event","class":"JXSelectItemEvent","fields":{"itemListName":"found for lighthouse","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":1900}
{"do":"event","class":"JXViewItem","fields":{"pageName":"article","currency":"EUR","revenue":"24.90","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":19500}
{"do":"event","class":"JXAddToCartEvent","fields":{"currency":"EUR","value":"24.90","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":4200}
{"do":"event","class":"JXAddToCartEvent","fields":{"currency":"EUR","value":"25.00","items":[{"ID":"2","quantity":2,"list_position":2,"product":{"ID":"mug-07","name":"Lighthouse mug","price":"12.50","currency":"EUR","categories":["kitchen"]}}]}}
{"do":"advance","ms":7700}
{"do":"event","class":"JXViewCartEvent","fields":{"pageName":"cart","currency":"EUR","value":"49.90","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}},{"ID":"2","quantity":2,"list_position":2,"product":{"ID":"mug-07","name":"Lighthouse mug","price":"12.50","currency":"EUR","categories":["kitchen"]}}]}}
{"do":"advance","ms":5200}
{"do":"event","class":"JXRemoveFromCartEvent","fields":{"currency":"EUR","value":"25.00","items":[{"ID":"2","quantity":2,"list_position":2,"product":{"ID":"mug-07","name":"Lighthouse mug","price":"12.50","currency":"EUR","categories":["kitchen"]}}]}}
{"do":"advance","ms":3300}
{"do":"event","class":"JXBeginCheckoutEvent","fields":{"value":"24.90","revenue":"24.90","currency":"EUR","coupon":"HARBOUR10","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":16400}
{"do":"event","class":"JXAddShippingInfoEvent","fields":{"currency":"EUR","value":"24.90","coupon":"HARBOUR10","shippingTier":"parcel","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":11800}
{"do":"event","class":"JXAddPaymentInfoEvent","fields":{"paymentMethod":"invoice","coupon":"HARBOUR10","revenue":"24.90","currency":"EUR","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":9100}
{"do":"event","class":"JXPurchaseEvent","fields":{"currency":"EUR","ID":"A-1047","value":"24.90","revenue":"22.41","shippingAmount":"3.90","taxAmount":"3.58","coupon":"HARBOUR10","paymentMethod":"invoice","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}]}}
{"do":"advance","ms":2600}
{"do":"event","class":"JXPurchaseEvent","fields":{"currency":"EUR","ID":"A-1047","value":"24.90","revenue":"22.41","shippingAmount":"3.90","taxAmount":"3.58","coupon":"HARBOUR10","paymentMethod":"invoice","items":[{"ID":"1","quantity":1,"list_position":1,"product":{"ID":"poster-50x70","name":"Poster: The Last Lighthouse","price":"24.90","currency":"EUR","categories":["posters","film"],"brand":"Harbour Print","colors":["blue"]}}],"type":"shop","status":"confirmed"}}
{"do":"advance","ms":41000}
{"do":"event","class":"JXCustomEvent","name":"film_rented","parameters":{"title":"The Last Lighthouse","price":3.99,"currency":"EUR","hours":48}}
{"do":"advance","ms":6400}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true,"cursorPosition":0}}
{"do":"advance","ms":400}
{"do":"event","class":"JXVideoAdEvent","mode":"BREAK_START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":0,"adAssetID":"pre-roll-break","adPodID":"pre-1","adType":"PRE_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":300}
{"do":"event","class":"JXVideoAdEvent","mode":"START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":0,"adAssetID":"harbour-tours","adPodID":"pre-1","adType":"PRE_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":10000}
{"do":"event","class":"JXVideoAdEvent","mode":"PLAYING","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":0,"adAssetID":"harbour-tours","adPodID":"pre-1","adType":"PRE_ROLL","podLength":1,"podPosition":1,"adQuartile":2}}
{"do":"advance","ms":10000}
{"do":"event","class":"JXVideoAdEvent","mode":"COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":0,"adAssetID":"harbour-tours","adPodID":"pre-1","adType":"PRE_ROLL","podLength":1,"podPosition":1,"adQuartile":4}}
{"do":"advance","ms":200}
{"do":"event","class":"JXVideoAdEvent","mode":"BREAK_COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":0,"adAssetID":"pre-roll-break","adPodID":"pre-1","adType":"PRE_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":500}
{"do":"event","class":"JXVideoContentEvent","mode":"START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","videoCategory":"film","keywords":["sea","drama"],"bitrate":15000,"framerate":"23.976","cursorPosition":0}}
{"do":"advance","ms":94000}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"BUFFER_START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true}}
{"do":"advance","ms":3800}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"BUFFER_COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true}}
{"do":"advance","ms":182000}
{"do":"event","class":"JXVideoSettingEvent","mode":"SUBTITLE_ON","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","cursorPosition":276,"bitrate":15000,"framerate":"23.976","fullScreen":true}}
{"do":"advance","ms":244000}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"SEEK_START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true,"cursorPosition":520,"seekPosition":520,"interruptionMethod":"remote"}}
{"do":"advance","ms":2100}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"SEEK_COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true,"cursorPosition":700,"seekPosition":700}}
{"do":"advance","ms":650000}
{"do":"event","class":"JXVideoContentEvent","mode":"QUARTER_REACHED","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","videoCategory":"film","keywords":["sea","drama"],"bitrate":15000,"framerate":"23.976","cursorPosition":1350}}
{"do":"advance","ms":450000}
{"do":"event","class":"JXVideoAdEvent","mode":"BREAK_START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":1800,"adAssetID":"mid-roll-break","adPodID":"mid-1","adType":"MID_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":300}
{"do":"event","class":"JXVideoAdEvent","mode":"START","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":1800,"adAssetID":"coast-radio","adPodID":"mid-1","adType":"MID_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":6000}
{"do":"event","class":"JXVideoAdEvent","mode":"SKIP","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":1800,"adAssetID":"coast-radio","adPodID":"mid-1","adType":"MID_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":200}
{"do":"event","class":"JXVideoAdEvent","mode":"BREAK_COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","cursorPosition":1800,"adAssetID":"mid-roll-break","adPodID":"mid-1","adType":"MID_ROLL","podLength":1,"podPosition":1}}
{"do":"advance","ms":388000}
{"do":"event","class":"JXCustomEvent","name":"consent_changed","parameters":{"measurement":false}}
{"do":"disable"}
{"do":"event","class":"JXPageViewEvent","fields":{"pageName":"settings","pageType":"privacy"}}
{"do":"advance","ms":48000}
{"do":"enable"}
{"do":"event","class":"JXCustomEvent","name":"consent_changed","parameters":{"measurement":true}}
{"do":"advance","ms":464000}
{"do":"event","class":"JXVideoContentEvent","mode":"QUARTER_REACHED","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","videoCategory":"film","keywords":["sea","drama"],"bitrate":15000,"framerate":"23.976","cursorPosition":2700}}
{"do":"advance","ms":420000}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"PAUSE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true,"cursorPosition":3120,"interruptionMethod":"remote"}}
{"do":"background"}
{"do":"advance","ms":95000}
{"do":"event","class":"JXCustomEvent","name":"download_complete","parameters":{"title":"Seven Winters","megabytes":1843.2}}
{"do":"advance","ms":1860000}
{"do":"foreground"}
{"do":"event","class":"JXCustomEvent","name":"profile_switch","parameters":{"to":"living room","age_limit":18}}
{"do":"advance","ms":4300}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"RESUME","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true,"cursorPosition":3120}}
{"do":"advance","ms":5000}
{"do":"event","class":"JXVideoSettingEvent","mode":"VOLUME","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","cursorPosition":3125,"bitrate":15000,"framerate":"23.976","fullScreen":true,"sound":35}}
{"do":"advance","ms":925000}
{"do":"event","class":"JXVideoContentEvent","mode":"QUARTER_REACHED","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","videoCategory":"film","keywords":["sea","drama"],"bitrate":15000,"framerate":"23.976"},"parameters":{"cursor_position":"4050 s"}}
{"do":"advance","ms":1350000}
{"do":"event","class":"JXVideoContentEvent","mode":"COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":"lighthouse-2160p","videoCategory":"film","keywords":["sea","drama"],"bitrate":15000,"framerate":"23.976","cursorPosition":5400}}
{"do":"advance","ms":900}
{"do":"event","class":"JXVideoPlaybackEvent","mode":"COMPLETE","session":"evening-1","fields":{"totalLength":5400,"videoTitle":"The Last Lighthouse","publisher":"Harbour Films","contentAssetID":["lighthouse-2160p"],"videoPlayer":"living-room","fullScreen":true,"adEnabled":true,"cursorPosition":5400}}
{"do":"advance","ms":11000}
{"do":"event","class":"JXCustomEvent","name":"rating","parameters":{"title":"The Last Lighthouse","stars":4.5}}
)json";

}  // namespace

std::string_view demoScript() { return kScript; }

}  // namespace jx
