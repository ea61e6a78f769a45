// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/ServerSide.h"

#include <memory>
#include <utility>

#include "jx/facade/ServerSide.h"
#import "jx/objc/JXEvent.h"
#import "jx/objc/JXServerSideInitialisation.h"
#import "jx/objc/JXState.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXExecutableEvent.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXObjectiveCFirebase.h"
#import "jx/objc/internal/JXOwnership.h"
#include "jx/platform/JXRunTimeClasses.h"

using jx::objc::coreCenter;
using jx::objc::firebaseOf;
using jx::objc::heldCore;
using jx::objc::toFoundation;
using jx::objc::toJson;
using jx::objc::toString;
using Core = jx::ServerSide;

static constexpr char kSourceKey[] = "ServerSide.sourceKey";
static constexpr char kPermanentData[] = "ServerSide: permanent data";

static bool isClass(const char* name) {
  @autoreleasepool {
    return NSClassFromString([NSString stringWithUTF8String:name]) != Nil;
  }
}

static std::shared_ptr<Core> newCore(int32_t siteID, NSString* sourceKey,
                                     NSNotificationCenter* center,
                                     EJXDefaultBehaviour defaultBehaviour, id firebaseInstance) {
  // The library also receives what is posted on the default center.
  coreCenter(nil);
  jx::JXRunTimeClasses::setLookup(isClass);
  // The name is longer than a line.
  constexpr auto create =
      &Core::initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance;
  std::shared_ptr<Core> core = create(siteID, toString(sourceKey, kSourceKey), coreCenter(center),
                                      defaultBehaviour, firebaseOf(firebaseInstance));
  // The object of the notifications of transitions.
  [JXState sharedInstance];
  return core;
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
  @autoreleasepool {
    self = [self
        jx_initWithHeldCore:newCore(siteID, sourceKey, center, defaultBehaviour, firebaseInstance)];
    if (self != nil) jx::objc::addObject(self, heldCore<Core>(self).get());
  }
  return self;
}

- (void)dealloc {
  jx::objc::removeObject(self);
  JX_RELEASE(_listener);
  JX_SUPER_DEALLOC();
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  return newCore(0, nil, nil, EJXDefaultBehaviour_DEFAULT, nil);
}

- (void)execute:(JXEvent*)event {
  @autoreleasepool {
    if (!jx::objc::isNilOr([JXEvent class], event, "execute:")) return;
    heldCore<Core>(self)->execute(jx::objc::executableEvent(event));
  }
}

- (void)addPermanentData:(NSString*)key withValue:(id)value {
  const jx::JXJsonValue json = toJson(value, kPermanentData);
  // Only nil removes a key, not a value that JSON does not have.
  if (json.isPresent() || value == nil) {
    heldCore<Core>(self)->addPermanentData_withValue(toString(key, kPermanentData), json);
  }
}

- (id)getPermanentData:(NSString*)key {
  return toFoundation(heldCore<Core>(self)->getPermanentData(toString(key, kPermanentData)));
}

- (id)removePermanentData:(NSString*)key {
  return toFoundation(heldCore<Core>(self)->removePermanentData(toString(key, kPermanentData)));
}

- (void)waitForUserAgent {
  heldCore<Core>(self)->waitForUserAgent();
}

- (void)enableRunningInBackground {
  heldCore<Core>(self)->enableRunningInBackground();
}

- (void)disableServerSide {
  heldCore<Core>(self)->disableServerSide();
}

- (void)enableServerSide {
  heldCore<Core>(self)->enableServerSide();
}

- (void)addAdvertisingIDs {
  heldCore<Core>(self)->addAdvertisingIDs();
}

- (void)setAdvertisingTrackingEnabled {
  heldCore<Core>(self)->setAdvertisingTrackingEnabled();
}

- (void)setIDFA {
  heldCore<Core>(self)->setIDFA();
}

- (void)changeNotificationCenter:(NSNotificationCenter*)center {
  heldCore<Core>(self)->changeNotificationCenter(coreCenter(center));
}

- (void)onNotificationReceived:(NSNotification*)notification {
  if (!jx::objc::isOf([NSNotification class], notification, "onNotificationReceived:")) return;
  jx::objc::postInCore(notification, [self](const jx::JXNotification& core) {
    heldCore<Core>(self)->onNotificationReceived(core);
  });
}

- (void)setDeveloperIdForFirebaseInstance {
  heldCore<Core>(self)->setDeveloperIdForFirebaseInstance();
}

- (int32_t)siteID {
  return heldCore<Core>(self)->siteID();
}

- (void)setSiteID:(int32_t)value {
  heldCore<Core>(self)->setSiteID(value);
}

- (EJXServerSideState)serverSideState {
  return static_cast<EJXServerSideState>(heldCore<Core>(self)->serverSideState());
}

- (void)setServerSideState:(EJXServerSideState)value {
  heldCore<Core>(self)->setServerSideState(value);
}

- (EJXDefaultBehaviour)defaultBehaviour {
  return static_cast<EJXDefaultBehaviour>(heldCore<Core>(self)->defaultBehaviour());
}

- (void)setDefaultBehaviour:(EJXDefaultBehaviour)value {
  heldCore<Core>(self)->setDefaultBehaviour(value);
}

- (NSString*)url {
  return toFoundation(heldCore<Core>(self)->url());
}

- (void)setUrl:(NSString*)value {
  if (!jx::objc::isNilOr([NSString class], value, "ServerSide.url")) return;
  heldCore<Core>(self)->setUrl(toString(value, "ServerSide.url"));
}

- (JXDynamicStore*)permanentStore {
  return jx::objc::storeOf(heldCore<Core>(self)->permanentStore());
}

- (void)setPermanentStore:(JXDynamicStore*)value {
  if (!jx::objc::isNilOr([JXDynamicStore class], value, kPermanentData)) return;
  heldCore<Core>(self)->setPermanentStore(jx::objc::coreStore(value));
}

- (JXEventSender*)senderDelegate {
  return jx::objc::senderOf(heldCore<Core>(self)->senderDelegate());
}

- (void)setSenderDelegate:(JXEventSender*)value {
  if (!jx::objc::isNilOr([JXEventSender class], value, "senderDelegate")) return;
  heldCore<Core>(self)->setSenderDelegate(jx::objc::coreSender(value));
}

- (JXEventListener*)listenerDelegate {
  return jx::objc::keptListener(self, &_listener, heldCore<Core>(self)->listenerDelegate());
}

- (void)setListenerDelegate:(JXEventListener*)value {
  if (!jx::objc::isNilOr([JXEventListener class], value, "listenerDelegate")) return;
  heldCore<Core>(self)->setListenerDelegate(jx::objc::coreListener(value));
  jx::objc::keepListener(self, &_listener, value);
}

- (JXServerSideInitialisation*)initialisation {
  const auto core = heldCore<Core>(self)->initialisation();
  if (core == nullptr) return nil;
  return JX_AUTORELEASE([[JXServerSideInitialisation alloc] jx_initWithHeldCore:core]);
}

- (void)setInitialisation:(JXServerSideInitialisation*)value {
  if (!jx::objc::isNilOr([JXServerSideInitialisation class], value, "initialisation")) return;
  heldCore<Core>(self)->setInitialisation(heldCore<jx::JXServerSideInitialisation>(value));
}

- (id)firebaseInstance {
  return jx::objc::instanceOf(heldCore<Core>(self)->firebaseInstance());
}

- (void)setFirebaseInstance:(id)value {
  heldCore<Core>(self)->setFirebaseInstance(firebaseOf(value));
}

@end
