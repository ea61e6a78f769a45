// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

@class JXItem;

NS_ASSUME_NONNULL_BEGIN

/// A list of items was shown.
JX_OBJC_CLASS
@interface JXViewItemListEvent : JXEvent

/// Creates an event and appends the items to its own list; the caller's list is not stored.
- (instancetype)initWithItems:(nullable NSArray<JXItem*>*)items JX_SWIFT_NAME("init(items:)");
/// Creates an event named "view_item_list"; all other fields are nil or empty.
- (instancetype)init;

/// The name of the list.
@property(nonatomic, copy, nullable) NSString* itemListName;
/// The event's list of items, initially empty; callers may append to it.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<JXItem*>* items JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setItems:(nullable NSArray<JXItem*>*)items JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
