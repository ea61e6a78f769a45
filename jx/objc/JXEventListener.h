// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

@class JXEventListener;

NS_ASSUME_NONNULL_BEGIN

/// An object that owns a listener and receives its notifications.
@protocol IJXEventListenerDelegate <NSObject>
/// Called with each notification, on the thread that posts it.
- (void)onNotificationReceived:(nullable NSNotification*)notification;
/// The listener that this object owns; nil when it has none.
@property(nonatomic, readonly, nullable) JXEventListener* listenerDelegate;
@end

/// Passes the notifications with the names that it listens for to its parent, once, on whichever
/// center of the library they are posted: the default one, and each that was passed to a ServerSide
/// or to a JXEventSender. An exception of the parent is logged. Two objects are equal when they are
/// the same listener of the library.
JX_OBJC_CLASS
@interface JXEventListener : JXObject {
 @private
  void* _parent;  // The C++ object that calls the parent.
}

/// Creates a listener without a parent or names.
- (instancetype)init;
/// Sets the object to call, by one thread at a time. It is not retained: before it ends, it sets
/// nil here or releases the listener, either of which waits for a call in progress on another
/// thread.
- (void)setParent:(nullable id<IJXEventListenerDelegate>)parent;
/// Starts listening for notifications with the name. Nil, and a name that is already listened for,
/// are ignored.
- (void)listen:(nullable NSString*)name;
/// Moves the listener with all its names to another center; nil selects the default one. It still
/// receives what is posted on the other centers of the library.
- (void)setNotificationCenter:(nullable NSNotificationCenter*)center;

@end

NS_ASSUME_NONNULL_END
