// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

@class JXEventSender;

NS_ASSUME_NONNULL_BEGIN

/// An object that owns a sender.
@protocol IJXEventSenderDelegate <NSObject>
/// The sender that this object owns; nil when it has none.
@property(nonatomic, readonly, nullable) JXEventSender* senderDelegate;
@end

/// Posts notifications on a notification center, from which they reach the library too.
/// Thread-safe; no operation throws. Two objects are equal when they are the same sender of the
/// library.
JX_OBJC_SENDABLE_CLASS
@interface JXEventSender : JXObject

/// Creates a sender that posts on the default center.
- (instancetype)init;
/// Sets the owner, which is neither retained nor called.
- (void)setParent:(nullable id<IJXEventSenderDelegate>)parent;
/// Sets the center to post on; nil selects the default one.
- (void)setNotificationCenter:(nullable NSNotificationCenter*)center;
/// Posts the notification and calls all observers on the caller's thread before it returns. Nil is
/// ignored.
- (void)send:(nullable NSNotification*)notification;

@end

NS_ASSUME_NONNULL_END
