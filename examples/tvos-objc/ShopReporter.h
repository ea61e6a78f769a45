// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#if !__has_include("jx/objc/JXServerSide.h")
@import JXServerSideObjC;
#else
#import "jx/objc/JXServerSide.h"
#endif

NS_ASSUME_NONNULL_BEGIN

/// Sends the events of a screen that shows a film and sells it, while the viewer consents. It
/// depends on no user interface. Use it on the main thread.
@interface ShopReporter : NSObject {
 @private
  ServerSide* _serverSide;
  JXProduct* _film;
  int32_t _quantity;
  BOOL _isScreenReported;
}

/// Retains both. The film has an ID, a name, a price and a currency.
- (instancetype)initWithServerSide:(ServerSide*)serverSide film:(JXProduct*)film;

/// Starts sending. The first consent reports the screen: `page_view`, then `view_item`.
- (void)giveConsent;
/// Stops sending, also in later starts of the application, until the next `giveConsent`.
- (void)withdrawConsent;
/// Puts the film into the cart once more: `add_to_cart`.
- (void)addToCart;
/// Buys the content of the cart and empties it: `purchase`. Does nothing if the cart is empty.
- (void)buyWithOrderID:(NSString*)orderID;

@end

NS_ASSUME_NONNULL_END
