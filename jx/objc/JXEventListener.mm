// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEventListener.h"

#include <utility>

#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXCoreSlot.h"
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
      } @catch (NSException* exception) {
        logObserverException([converted name], exception);
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
  coreCenter(nil);
  return [self jx_initWithCore:Core::init()];
}

- (instancetype)jx_initWithCore:(std::shared_ptr<Core>)core
    __attribute__((objc_method_family(init))) {
  self = [super init];
  if (self != nil) slot<Core>(_core) = std::move(core);
  return self;
}

- (void)dealloc {
  if (_parent != nullptr) [self setParent:nil];
  endSlot<Core>(_core);
  JX_SUPER_DEALLOC();
}

// Never null: an object whose initialiser was not called has a new listener.
- (const std::shared_ptr<Core>&)jx_core {
  std::shared_ptr<Core>& core = slot<Core>(_core);
  if (core == nullptr) core = Core::init();
  return core;
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[JXEventListener class]]) return NO;
  return [self jx_core] == [other jx_core] ? YES : NO;
}

- (NSUInteger)hash {
  return reinterpret_cast<NSUInteger>([self jx_core].get()) >> 4;
}

- (void)setParent:(id<IJXEventListenerDelegate>)parent {
  if (parent != nil && ![parent respondsToSelector:@selector(onNotificationReceived:)]) {
    jx::JXLogger::sharedInstance().logMessage_withLevel(
        "Listener parent has no method onNotificationReceived:; ignored", 3);
    return;
  }
  auto* const next = parent == nil ? nullptr : new ParentInObjectiveC(parent);
  [self jx_core]->setParent(next);
  delete static_cast<ParentInObjectiveC*>(std::exchange(_parent, next));
}

- (void)listen:(NSString*)name {
  const jx::JXString converted = toString(name, "JXEventListener.listen:");
  if (!converted.isPresent()) return;
  [self jx_core]->listen(converted);
  passOn(name);
}

@end

namespace jx::objc {

std::shared_ptr<Core> coreListener(::JXEventListener* listener) {
  return listener == nil ? nullptr : [listener jx_core];
}

::JXEventListener* listenerOf(const std::shared_ptr<Core>& core) {
  return core == nullptr ? nil : JX_AUTORELEASE([[::JXEventListener alloc] jx_initWithCore:core]);
}

}  // namespace jx::objc
