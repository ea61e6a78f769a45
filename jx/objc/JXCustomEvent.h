// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// An event that the application defines: a name, and any additional parameters. A class of the
/// application can derive from it and override `getJsonObject`.
JX_OBJC_CLASS
@interface JXCustomEvent : JXEvent

/// Creates an event with this name. With a nil name, the event fails `verifyEvent` and is sent
/// without "event_name".
- (instancetype)initWithName:(nullable NSString*)name JX_SWIFT_NAME("init(name:)");
/// Unavailable, because an event of this class needs a name.
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
