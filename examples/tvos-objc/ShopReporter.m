// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "ShopReporter.h"

// The tests compile this file without automatic reference counting.
#if __has_feature(objc_arc)
#define RETAIN_SHOP(object) (object)
#define AUTORELEASE_SHOP(object) (object)
#else
#define RETAIN_SHOP(object) [(object) retain]
#define AUTORELEASE_SHOP(object) [(object) autorelease]
#endif

@implementation ShopReporter

- (instancetype)initWithServerSide:(ServerSide*)serverSide film:(JXProduct*)film {
  self = [super init];
  if (self == nil) return nil;
  _serverSide = RETAIN_SHOP(serverSide);
  _film = RETAIN_SHOP(film);
  return self;
}

#if !__has_feature(objc_arc)
- (void)dealloc {
  [_serverSide release];
  [_film release];
  [super dealloc];
}
#endif

- (void)giveConsent {
  [_serverSide enableServerSide];
  if (_isScreenReported) return;
  _isScreenReported = YES;
  [self sendPageView];
  [self sendViewItem];
}

- (void)withdrawConsent {
  [_serverSide disableServerSide];
}

- (void)sendPageView {
  JXPageViewEvent* const event = AUTORELEASE_SHOP([[JXPageViewEvent alloc] initWithType:@"film"]);
  event.pageName = _film.name;
  [self send:event];
}

- (void)sendViewItem {
  JXViewItem* const event = AUTORELEASE_SHOP([[JXViewItem alloc] init]);
  [event setItems:[self itemsWithQuantity:1]];
  event.currency = _film.currency;
  event.revenue = _film.price;
  [self send:event];
}

- (void)addToCart {
  ++_quantity;
  JXAddToCartEvent* const event = AUTORELEASE_SHOP([[JXAddToCartEvent alloc] init]);
  [event setItems:[self itemsWithQuantity:1]];
  event.currency = _film.currency;
  event.value = _film.price;
  [self send:event];
}

- (void)buyWithOrderID:(NSString*)orderID {
  if (_quantity == 0) return;
  JXPurchaseEvent* const event = AUTORELEASE_SHOP([[JXPurchaseEvent alloc] init]);
  event.ID = orderID;
  [event setItems:[self itemsWithQuantity:_quantity]];
  event.currency = _film.currency;
  event.revenue = [self priceOf:_quantity];
  event.value = event.revenue;
  event.type = @"film";
  event.paymentMethod = @"card";
  event.status = EJXPurchaseStatus_IN_PROGRESS;
  [self send:event];
  _quantity = 0;
}

- (NSArray<JXItem*>*)itemsWithQuantity:(int32_t)quantity {
  JXItem* const item = AUTORELEASE_SHOP([[JXItem alloc] initWithItemId:_film.ID
                                                           withProduct:_film
                                                          withQuantity:quantity]);
  return [NSArray arrayWithObject:item];
}

// In decimal, because binary floating point cannot represent amounts such as 4.99.
- (NSDecimalNumber*)priceOf:(int32_t)quantity {
  NSDecimalNumber* const factor =
      [NSDecimalNumber decimalNumberWithMantissa:(unsigned long long)quantity
                                        exponent:0
                                      isNegative:NO];
  return [_film.price decimalNumberByMultiplyingBy:factor];
}

- (void)send:(JXEvent*)event {
  NSString* const condition = [event firstFailedCondition];
  if (condition != nil) NSLog(@"%@ is not valid: %@", [event class], condition);
  [_serverSide execute:event];
}

@end
