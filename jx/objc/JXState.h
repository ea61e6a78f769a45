// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXEventSender.h"
#import "JXSingleton.h"

NS_ASSUME_NONNULL_BEGIN

/// Reports to the library when the application enters the background and the foreground. The
/// library observes the system's notifications itself; call the operations only where there are
/// none. A subclass can override the two hooks, which are called as long as an object of it exists.
JX_OBJC_CLASS
@interface JXState : JXSingleton <IJXEventSenderDelegate>

/// Returns the object of this process.
+ (JXState*)sharedInstance JX_SWIFT_NAME("shared()");

/// Observes the system's notifications once more. Each transition is then posted once more often
/// than before. Returns this object.
- (instancetype)reinit;
/// Sets the notification center that transitions are posted on; nil means the default one. The
/// system's notifications are still received on the default center.
- (void)changeNotificationCenter:(nullable NSNotificationCenter*)center
    JX_SWIFT_NAME("changeNotificationCenter(_:)");
/// Calls `didEnterBackground:` with the object of the notification, then notifies the library.
- (void)applicationDidEnterBackground:(nullable NSNotification*)notification;
/// Calls `willEnterForeground:` with the object of the notification, then notifies the library.
- (void)applicationWillEnterForeground:(nullable NSNotification*)notification;
/// Called with the application object when the application has entered the background. Does
/// nothing; subclasses override it. An exception is logged.
- (void)didEnterBackground:(nullable id)application;
/// Called with the application object when the application enters the foreground. Does nothing;
/// subclasses override it.
- (void)willEnterForeground:(nullable id)application;
/// Returns the current time of the configured clock.
- (NSDate*)date;

/// The sender that notifies the library. With nil it is not notified.
@property(nonatomic, strong, nullable) JXEventSender* senderDelegate;

@end

NS_ASSUME_NONNULL_END
