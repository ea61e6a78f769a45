// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEventListener.h"

#include <utility>

#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXEventListener;
using namespace jx::objc;

namespace {

class ParentInObjectiveC final : public jx::IJXEventListenerDelegate {
 public:
  explicit ParentInObjectiveC(id<IJXEventListenerDelegate> parent) : parent_(parent) {}

  // The parent may end the listener, and with it this object, during the call.
  void onNotificationReceived(const jx::JXNotification& notification) override {
    @autoreleasepool {
      NSNotification* const converted = foundationOf(notification);
      @try {
        [parent_ onNotificationReceived:converted];
      } @catch (id thrown) {
        logObserverException([converted name], thrown);
      }
    }
  }
  std::shared_ptr<jx::JXEventListener> listenerDelegate() const override { return nullptr; }

 private:
  __unsafe_unretained const id<IJXEventListenerDelegate> parent_;
};

}  // namespace

@implementation JXEventListener

- (instancetype)init {
  return [super init];
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  coreCenter(nil);
  return Core::init();
}

- (void)dealloc {
  if (_parent != nullptr) [self setParent:nil];
  JX_SUPER_DEALLOC();
}

- (void)setParent:(id<IJXEventListenerDelegate>)parent {
  if (parent != nil && ![parent respondsToSelector:@selector(onNotificationReceived:)]) {
    jx::JXLogger::sharedInstance().logMessage_withLevel(
        "Listener parent has no method onNotificationReceived:; ignored", 3);
    return;
  }
  auto* const next = parent == nil ? nullptr : new ParentInObjectiveC(parent);
  heldCore<Core>(self)->setParent(next);
  delete static_cast<ParentInObjectiveC*>(std::exchange(_parent, next));
}

- (void)listen:(NSString*)name {
  const jx::JXString converted = toString(name, "JXEventListener.listen:");
  if (!converted.isPresent()) return;
  heldCore<Core>(self)->listen(converted);
  passOn(name);
}

- (void)setNotificationCenter:(NSNotificationCenter*)center {
  heldCore<Core>(self)->setNotificationCenter(coreCenter(center));
}

@end

namespace jx::objc {

std::shared_ptr<Core> coreListener(::JXEventListener* listener) { return heldCore<Core>(listener); }

::JXEventListener* keptListener(id owner, id __strong* kept, const std::shared_ptr<Core>& core) {
  id previous = nil;
  ::JXEventListener* current = nil;
  @synchronized(owner) {
    if (coreListener(*kept) != core) {
      previous = *kept;
      *kept = core == nullptr ? nil : [[::JXEventListener alloc] jx_initWithHeldCore:core];
    }
    current = JX_AUTORELEASE(JX_RETAIN(*kept));
  }
  JX_RELEASE(previous);
  return current;
}

void keepListener(id owner, id __strong* kept, ::JXEventListener* listener) {
  id previous = nil;
  @synchronized(owner) {
    previous = *kept;
    *kept = JX_RETAIN(listener);
  }
  // Without the lock, because its end waits for a call in progress, which may use the owner.
  JX_RELEASE(previous);
}

}  // namespace jx::objc
