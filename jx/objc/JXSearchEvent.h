// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// The viewer performed a search.
JX_OBJC_CLASS
@interface JXSearchEvent : JXEvent

/// Creates an event with this search term, without validating it.
- (instancetype)initWithSearchTerm:(nullable NSString*)searchTerm
    JX_SWIFT_NAME("init(searchTerm:)");
/// Creates an event named "search"; all other fields are nil or empty.
- (instancetype)init;

/// The search term.
@property(nonatomic, copy, nullable) NSString* searchTerm;

@end

NS_ASSUME_NONNULL_END
