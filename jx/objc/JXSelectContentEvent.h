// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// The viewer selected a piece of content. Always valid.
JX_OBJC_CLASS
@interface JXSelectContentEvent : JXEvent

/// Creates an event named "select_content"; all other fields are nil or empty.
- (instancetype)init;

/// The type of the content, a free-form string.
@property(nonatomic, copy, nullable) NSString* contentType;
/// The identifier of the selected content.
@property(nonatomic, copy, nullable) NSString* itemID;

@end

NS_ASSUME_NONNULL_END
