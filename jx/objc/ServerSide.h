// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXEventListener.h"
#import "JXEventSender.h"
#import "JXObject.h"

@class JXDynamicStore;
@class JXEvent;
@class JXServerSideInitialisation;

NS_ASSUME_NONNULL_BEGIN

/// Specifies whether events are sent.
typedef NS_ENUM(int32_t, EJXServerSideState) {
  /// Sent, with a marker instead of the user block.
  EJXServerSideState_WAITING_FOR_CONSENT JX_SWIFT_NAME("waitingForConsent") = 0,
  /// Sent with the user block.
  EJXServerSideState_ENABLED JX_SWIFT_NAME("enabled") = 1,
  /// `execute:` does nothing.
  EJXServerSideState_DISABLED JX_SWIFT_NAME("disabled") = 2,
};

/// Specifies the initial state, and whether stop requests are ignored.
typedef NS_ENUM(int32_t, EJXDefaultBehaviour) {
  /// Waits for consent if there is a consent module: a class named "JXMobileConsent", or a
  /// registered name.
  EJXDefaultBehaviour_DEFAULT JX_SWIFT_NAME("default") = 0,
  /// Starts enabled; stop requests are ignored.
  EJXDefaultBehaviour_ALWAYS_ENABLED JX_SWIFT_NAME("alwaysEnabled") = 1,
  /// Starts disabled until it is enabled.
  EJXDefaultBehaviour_DISABLED_BY_DEFAULT JX_SWIFT_NAME("disabledByDefault") = 2,
};

/// The main SDK object. Create one on the main thread and keep it while the application runs; it
/// queues events and delivers them.
///
/// Every operation may be called from any thread; an event belongs to one thread at a time.
/// Operations return at once, never throw and report no errors; failures are logged.
JX_OBJC_SENDABLE_CLASS
@interface ServerSide : JXObject <IJXEventSenderDelegate, IJXEventListenerDelegate> {
 @private
  id _Nullable _listener;  // The listener that was set or returned.
}

/// Uses the default behaviour and no Firebase instance. `siteID` is the site ID of the application,
/// `sourceKey` its source key. The first object starts the library.
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey
    JX_SWIFT_NAME("init(siteID:sourceKey:)");
/// Uses no Firebase instance.
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey
           andDefaultBehaviour:(EJXDefaultBehaviour)defaultBehaviour
    JX_SWIFT_NAME("init(siteID:sourceKey:defaultBehaviour:)");
/// Uses the default behaviour. `firebaseInstance` is any object: each event is passed to its method
/// `logEventWithName:parameters:`, and the developer ID to `setDefaultEventParameters:parameters:`,
/// if it has them (see IJXFirebaseInstance). It is retained, and called on the thread that executes
/// an event.
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey
           andFirebaseInstance:(nullable id)firebaseInstance
    JX_SWIFT_NAME("init(siteID:sourceKey:firebaseInstance:)");
/// Posts on the default notification center.
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey
           andDefaultBehaviour:(EJXDefaultBehaviour)defaultBehaviour
           andFirebaseInstance:(nullable id)firebaseInstance
    JX_SWIFT_NAME("init(siteID:sourceKey:defaultBehaviour:firebaseInstance:)");
/// Sets every parameter. `center` is the notification center that this object posts on; nil means
/// the default one. It is retained as long as the process runs.
- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(nullable NSString*)sourceKey
            notificationCenter:(nullable NSNotificationCenter*)center
           andDefaultBehaviour:(EJXDefaultBehaviour)defaultBehaviour
           andFirebaseInstance:(nullable id)firebaseInstance
    JX_SWIFT_NAME("init(siteID:sourceKey:notificationCenter:defaultBehaviour:firebaseInstance:)");
/// Unavailable, because an object needs a site ID and a source key.
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

/// Queues an event for delivery. The event is stored before this returns and survives a killed
/// process. Adds the permanent data to the event object itself. Does nothing while disabled. Nil
/// and an object that is not an event are logged and ignored.
- (void)execute:(nullable JXEvent*)event;

/// Adds a value to every subsequent event, replacing any value with the same key: a string, number,
/// array, dictionary or NSNull, which is copied. Nil removes the key; a value of another class is
/// logged and ignored.
- (void)addPermanentData:(nullable NSString*)key
               withValue:(nullable id)value JX_SWIFT_NAME("addPermanentData(_:value:)");
/// Returns the value of the key; nil when it is not set.
- (nullable id)getPermanentData:(nullable NSString*)key JX_SWIFT_NAME("permanentData(_:)");
/// Removes the value and returns it; nil when it is not set. Event objects that were already
/// executed keep theirs.
- (nullable id)removePermanentData:(nullable NSString*)key;

/// Pauses delivery until the user agent is known, for 10 seconds at most.
- (void)waitForUserAgent;
/// Allows delivery while the application is in the background.
- (void)enableRunningInBackground;
/// Withdraws consent, for every object that is not always enabled: new events are ignored; queued
/// events stay queued. When this returns, nothing of them is sent any more, in later processes
/// neither, until an enabling. Waits for neither network nor disk.
- (void)disableServerSide;
/// Gives consent, for every object: new events are sent, and so are the queued events, also those
/// that earlier processes left because of a stop.
- (void)enableServerSide;
/// Reads the vendor identifier, the tracking permission and the advertising identifier, and copies
/// them to the device block. Call it after the viewer has answered the tracking prompt.
- (void)addAdvertisingIDs;
/// Stores "1" when the system allows advertising tracking, "0" otherwise.
- (void)setAdvertisingTrackingEnabled;
/// Stores the advertising identifier when the stored permission is "1", `STATIC_IDFA` otherwise.
- (void)setIDFA;
/// Moves the posts of this object to another notification center; nil means the default one.
/// Notifications that the object listens for are still received.
- (void)changeNotificationCenter:(nullable NSNotificationCenter*)center
    JX_SWIFT_NAME("changeNotificationCenter(_:)");
/// Handles the stop and enable notifications of any sender. Called on the posting thread. Nil and
/// other notifications are ignored.
- (void)onNotificationReceived:(nullable NSNotification*)notification;
/// Passes the developer ID to the Firebase instance, if there is one and it has the method. Each
/// initialiser calls this.
- (void)setDeveloperIdForFirebaseInstance;

/// The site ID. Setting it does not change `url`.
@property(nonatomic) int32_t siteID;
/// Whether events are sent. The setter only decides whether `execute:` sends; use
/// `enableServerSide` and `disableServerSide` instead.
@property(nonatomic) EJXServerSideState serverSideState;
/// The default behaviour. Setting it later changes only whether stop requests are ignored.
@property(nonatomic) EJXDefaultBehaviour defaultBehaviour;
/// The URL that events are posted to, with site ID and source key. A new URL applies to subsequent
/// events.
@property(nonatomic, copy, nullable) NSString* url;
/// The store of the permanent data. With nil, events contain no permanent data, and values that are
/// added are ignored.
@property(nonatomic, strong, nullable) JXDynamicStore* permanentStore;
/// The sender of requests and state changes. With nil nothing is sent.
@property(nonatomic, strong, nullable) JXEventSender* senderDelegate;
/// The listener through which this object receives state changes. The previous one no longer calls
/// this object; the new one is used unchanged, with the parent and the names that were set.
@property(nonatomic, strong, nullable) JXEventListener* listenerDelegate;
/// The object that started the library for this one. Setting it has no effect on the library.
@property(nonatomic, strong, nullable) JXServerSideInitialisation* initialisation;
/// The object that events are mirrored to.
@property(nonatomic, strong, nullable) id firebaseInstance;

@end

NS_ASSUME_NONNULL_END
