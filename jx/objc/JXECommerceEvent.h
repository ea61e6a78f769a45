// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// Base of the e-commerce events: a currency and a list of items. Each derived class writes them in
/// its own order. This class itself writes neither and always passes validation.
JX_OBJC_CLASS
@interface JXECommerceEvent : JXEvent

/// Creates an event without a name; `items` is empty.
- (instancetype)init;

/// The currency of the amounts, preferably an ISO 4217 code such as "EUR". Events of this class do
/// not contain it.
@property(nonatomic, copy, nullable) NSString* currency;
/// The event's list of items, initially empty; callers may append to it. Events of this class do
/// not contain it.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<JXItem*>* items JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setItems:(nullable NSArray<JXItem*>*)items JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
