// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#ifndef JX_C_JX_EVENTS_H
#define JX_C_JX_EVENTS_H

#include "jx/c/events/JXAddPaymentInfoEvent.h"
#include "jx/c/events/JXAddShippingInfoEvent.h"
#include "jx/c/events/JXAddToCartEvent.h"
#include "jx/c/events/JXAddToWishlistEvent.h"
#include "jx/c/events/JXBeginCheckoutEvent.h"
#include "jx/c/events/JXCustomEvent.h"
#include "jx/c/events/JXECommerceEvent.h"
#include "jx/c/events/JXEvent.h"
#include "jx/c/events/JXGenerateLeadEvent.h"
#include "jx/c/events/JXItem.h"
#include "jx/c/events/JXLoginEvent.h"
#include "jx/c/events/JXPageViewEvent.h"
#include "jx/c/events/JXProduct.h"
#include "jx/c/events/JXPurchaseEvent.h"
#include "jx/c/events/JXRefundEvent.h"
#include "jx/c/events/JXRemoveFromCartEvent.h"
#include "jx/c/events/JXSearchEvent.h"
#include "jx/c/events/JXSelectContentEvent.h"
#include "jx/c/events/JXSelectItemEvent.h"
#include "jx/c/events/JXSignUpEvent.h"
#include "jx/c/events/JXVideoAdEvent.h"
#include "jx/c/events/JXVideoContentEvent.h"
#include "jx/c/events/JXVideoEvent.h"
#include "jx/c/events/JXVideoPlaybackEvent.h"
#include "jx/c/events/JXVideoSettingEvent.h"
#include "jx/c/events/JXViewCartEvent.h"
#include "jx/c/events/JXViewItem.h"
#include "jx/c/events/JXViewItemListEvent.h"
#include "jx/c/events/jx_names.h"

/// Includes the headers of all classes, fields and constants of the catalogue.

#endif
