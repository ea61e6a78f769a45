// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/ServerSide.h"

#include <memory>
#include <utility>

#include "jx/facade/ServerSide.h"
#import "jx/objc/JXEvent.h"
#import "jx/objc/JXState.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXExecutableEvent.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXObjectiveCFirebase.h"
#import "jx/objc/internal/JXOwnership.h"
#include "jx/platform/JXRunTimeClasses.h"

using jx::objc::coreCenter;
using jx::objc::firebaseOf;
using jx::objc::setObject;
using jx::objc::toFoundation;
using jx::objc::toJson;
using jx::objc::toString;
using Core = std::shared_ptr<jx::ServerSide>;

static constexpr char kSourceKey[] = "ServerSide.sourceKey";
static constexpr char kPermanentData[] = "ServerSide: permanent data";

static bool isClass(const char* name) {
  @autoreleasepool {
    return NSClassFromString([NSString stringWithUTF8String:name]) != Nil;
  }
}

@implementation ServerSide

- (instancetype)init {
  return [self initWithSiteID:0 andSourceKey:nil];
}

- (instancetype)initWithSiteID:(int32_t)siteID andSourceKey:(NSString*)sourceKey {
  return [self initWithSiteID:siteID
                 andSourceKey:sourceKey
          andDefaultBehaviour:EJXDefaultBehaviour_DEFAULT
          andFirebaseInstance:nil];
}

- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(NSString*)sourceKey
           andDefaultBehaviour:(EJXDefaultBehaviour)defaultBehaviour {
  return [self initWithSiteID:siteID
                 andSourceKey:sourceKey
          andDefaultBehaviour:defaultBehaviour
          andFirebaseInstance:nil];
}

- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(NSString*)sourceKey
           andFirebaseInstance:(id)firebaseInstance {
  return [self initWithSiteID:siteID
                 andSourceKey:sourceKey
          andDefaultBehaviour:EJXDefaultBehaviour_DEFAULT
          andFirebaseInstance:firebaseInstance];
}

- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(NSString*)sourceKey
           andDefaultBehaviour:(EJXDefaultBehaviour)defaultBehaviour
           andFirebaseInstance:(id)firebaseInstance {
  return [self initWithSiteID:siteID
                 andSourceKey:sourceKey
           notificationCenter:nil
          andDefaultBehaviour:defaultBehaviour
          andFirebaseInstance:firebaseInstance];
}

- (instancetype)initWithSiteID:(int32_t)siteID
                  andSourceKey:(NSString*)sourceKey
            notificationCenter:(NSNotificationCenter*)center
           andDefaultBehaviour:(EJXDefaultBehaviour)defaultBehaviour
           andFirebaseInstance:(id)firebaseInstance {
  self = [super init];
  if (self == nil) return nil;
  // The memory of a new object is zero, which is a null pointer.
  static_assert(sizeof(Core) == sizeof _core, "the C++ object must fit");
  @autoreleasepool {
    // The library also receives what is posted on the default center.
    coreCenter(nil);
    jx::JXRunTimeClasses::setLookup(isClass);
    // The name is longer than a line.
    constexpr auto create =
        &jx::ServerSide::
            initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance;
    [self jx_core] = create(siteID, toString(sourceKey, kSourceKey), coreCenter(center),
                            defaultBehaviour, firebaseOf(firebaseInstance));
    setObject(self, [self jx_core].get());
    // The object of the notifications of transitions.
    [JXState sharedInstance];
  }
  return self;
}

- (void)dealloc {
  setObject(nil, [self jx_core].get());
  JX_RELEASE(_listener);
  [self jx_core].~Core();
  JX_SUPER_DEALLOC();
}

- (Core&)jx_core {
  return *static_cast<Core*>(static_cast<void*>(_core));
}

- (void)execute:(JXEvent*)event {
  @autoreleasepool {
    if (event != nil && !jx::objc::isOf([JXEvent class], event, "execute:")) return;
    [self jx_core]->execute(jx::objc::executableEvent(event));
  }
}

- (void)addPermanentData:(NSString*)key withValue:(id)value {
  const jx::JXJsonValue json = toJson(value, kPermanentData);
  // Only nil removes a key, not a value that JSON does not have.
  if (json.isPresent() || value == nil) {
    [self jx_core]->addPermanentData_withValue(toString(key, kPermanentData), json);
  }
}

- (id)getPermanentData:(NSString*)key {
  return toFoundation([self jx_core]->getPermanentData(toString(key, kPermanentData)));
}

- (id)removePermanentData:(NSString*)key {
  return toFoundation([self jx_core]->removePermanentData(toString(key, kPermanentData)));
}

- (void)waitForUserAgent {
  [self jx_core]->waitForUserAgent();
}

- (void)enableRunningInBackground {
  [self jx_core]->enableRunningInBackground();
}

- (void)disableServerSide {
  [self jx_core]->disableServerSide();
}

- (void)enableServerSide {
  [self jx_core]->enableServerSide();
}

- (void)addAdvertisingIDs {
  [self jx_core]->addAdvertisingIDs();
}

- (void)setAdvertisingTrackingEnabled {
  [self jx_core]->setAdvertisingTrackingEnabled();
}

- (void)setIDFA {
  [self jx_core]->setIDFA();
}

- (void)changeNotificationCenter:(NSNotificationCenter*)center {
  [self jx_core]->changeNotificationCenter(coreCenter(center));
}

- (void)onNotificationReceived:(NSNotification*)notification {
  if (!jx::objc::isOf([NSNotification class], notification, "onNotificationReceived:")) return;
  jx::objc::postInCore(notification, [self](const jx::JXNotification& core) {
    [self jx_core]->onNotificationReceived(core);
  });
}

- (void)setDeveloperIdForFirebaseInstance {
  [self jx_core]->setDeveloperIdForFirebaseInstance();
}

- (int32_t)siteID {
  return [self jx_core]->siteID();
}

- (void)setSiteID:(int32_t)value {
  [self jx_core]->setSiteID(value);
}

- (EJXServerSideState)serverSideState {
  return static_cast<EJXServerSideState>([self jx_core]->serverSideState());
}

- (void)setServerSideState:(EJXServerSideState)value {
  [self jx_core]->setServerSideState(value);
}

- (EJXDefaultBehaviour)defaultBehaviour {
  return static_cast<EJXDefaultBehaviour>([self jx_core]->defaultBehaviour());
}

- (void)setDefaultBehaviour:(EJXDefaultBehaviour)value {
  [self jx_core]->setDefaultBehaviour(value);
}

- (NSString*)url {
  return toFoundation([self jx_core]->url());
}

- (void)setUrl:(NSString*)value {
  [self jx_core]->setUrl(toString(value, "ServerSide.url"));
}

- (JXDynamicStore*)permanentStore {
  return jx::objc::storeOf([self jx_core]->permanentStore());
}

- (void)setPermanentStore:(JXDynamicStore*)value {
  if (value != nil && !jx::objc::isOf([JXDynamicStore class], value, kPermanentData)) return;
  [self jx_core]->setPermanentStore(jx::objc::coreStore(value));
}

- (JXEventSender*)senderDelegate {
  return jx::objc::senderOf([self jx_core]->senderDelegate());
}

- (void)setSenderDelegate:(JXEventSender*)value {
  if (value != nil && !jx::objc::isOf([JXEventSender class], value, "senderDelegate")) return;
  [self jx_core]->setSenderDelegate(jx::objc::coreSender(value));
}

- (JXEventListener*)listenerDelegate {
  @synchronized(self) {
    if (_listener != nil) return JX_AUTORELEASE(JX_RETAIN(_listener));
  }
  return jx::objc::listenerOf([self jx_core]->listenerDelegate());
}

- (void)setListenerDelegate:(JXEventListener*)value {
  if (value != nil && !jx::objc::isOf([JXEventListener class], value, "listenerDelegate")) return;
  id previous = nil;
  @synchronized(self) {
    previous = _listener;
    _listener = JX_RETAIN(value);
  }
  // Without the lock, because both wait for a call in progress, which may use this object.
  [self jx_core]->setListenerDelegate(jx::objc::coreListener(value));
  JX_RELEASE(previous);
}

- (id)firebaseInstance {
  return jx::objc::instanceOf([self jx_core]->firebaseInstance());
}

- (void)setFirebaseInstance:(id)value {
  [self jx_core]->setFirebaseInstance(firebaseOf(value));
}

@end
