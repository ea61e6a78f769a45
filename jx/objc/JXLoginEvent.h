// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// The viewer logged in. Always valid.
JX_OBJC_CLASS
@interface JXLoginEvent : JXEvent

/// Creates an event named "login"; all other fields are nil or empty.
- (instancetype)init;

/// The login method, a free-form string such as "remote" or "phone".
@property(nonatomic, copy, nullable) NSString* method;

@end

NS_ASSUME_NONNULL_END
