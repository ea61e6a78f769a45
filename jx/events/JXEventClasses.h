// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#pragma once

#include "jx/events/JXCustomEvent.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/events/JXEvent.h"
#include "jx/events/ecommerce/JXAddPaymentInfoEvent.h"
#include "jx/events/ecommerce/JXAddShippingInfoEvent.h"
#include "jx/events/ecommerce/JXAddToCartEvent.h"
#include "jx/events/ecommerce/JXAddToWishlistEvent.h"
#include "jx/events/ecommerce/JXBeginCheckoutEvent.h"
#include "jx/events/ecommerce/JXPurchaseEvent.h"
#include "jx/events/ecommerce/JXRefundEvent.h"
#include "jx/events/ecommerce/JXRemoveFromCartEvent.h"
#include "jx/events/ecommerce/JXViewCartEvent.h"
#include "jx/events/ecommerce/JXViewItem.h"
#include "jx/events/engagement/JXGenerateLeadEvent.h"
#include "jx/events/engagement/JXLoginEvent.h"
#include "jx/events/engagement/JXPageViewEvent.h"
#include "jx/events/engagement/JXSearchEvent.h"
#include "jx/events/engagement/JXSelectContentEvent.h"
#include "jx/events/engagement/JXSelectItemEvent.h"
#include "jx/events/engagement/JXSignUpEvent.h"
#include "jx/events/engagement/JXViewItemListEvent.h"
#include "jx/events/video/JXVideoAdEvent.h"
#include "jx/events/video/JXVideoContentEvent.h"
#include "jx/events/video/JXVideoEvent.h"
#include "jx/events/video/JXVideoPlaybackEvent.h"
#include "jx/events/video/JXVideoSettingEvent.h"

namespace jx {

/// All event classes, base classes first, in the order of docs/events.md.
inline constexpr const JXEventClass& (*kJXEventClasses[])() = {
    JXEvent::eventClass,
    JXECommerceEvent::eventClass,
    JXVideoEvent::eventClass,
    JXCustomEvent::eventClass,

    JXViewItem::eventClass,
    JXAddToWishlistEvent::eventClass,
    JXAddToCartEvent::eventClass,
    JXRemoveFromCartEvent::eventClass,
    JXViewCartEvent::eventClass,
    JXBeginCheckoutEvent::eventClass,
    JXAddShippingInfoEvent::eventClass,
    JXAddPaymentInfoEvent::eventClass,
    JXPurchaseEvent::eventClass,
    JXRefundEvent::eventClass,

    JXPageViewEvent::eventClass,
    JXSearchEvent::eventClass,
    JXLoginEvent::eventClass,
    JXSignUpEvent::eventClass,
    JXGenerateLeadEvent::eventClass,
    JXSelectContentEvent::eventClass,
    JXSelectItemEvent::eventClass,
    JXViewItemListEvent::eventClass,

    JXVideoPlaybackEvent::eventClass,
    JXVideoAdEvent::eventClass,
    JXVideoContentEvent::eventClass,
    JXVideoSettingEvent::eventClass,
};

}  // namespace jx
