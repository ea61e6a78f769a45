// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// A page or screen was shown. `pageType` is its type, `pageName` its name.
JX_OBJC_CLASS
@interface JXPageViewEvent : JXEvent

/// Creates an event with this page type, without validating it.
- (instancetype)initWithType:(nullable NSString*)pageType JX_SWIFT_NAME("init(type:)");
/// Creates an event named "page_view"; all other fields are nil or empty.
- (instancetype)init;

@end

NS_ASSUME_NONNULL_END
