// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEventSender.h"

#include <utility>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXCoreSlot.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXEventSender;
using namespace jx::objc;

@implementation JXEventSender

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
  endSlot<Core>(_core);
  JX_SUPER_DEALLOC();
}

// Never null: an object whose initialiser was not called has a new sender.
- (const std::shared_ptr<Core>&)jx_core {
  std::shared_ptr<Core>& core = slot<Core>(_core);
  if (core == nullptr) core = Core::init();
  return core;
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[JXEventSender class]]) return NO;
  return [self jx_core] == [other jx_core] ? YES : NO;
}

- (NSUInteger)hash {
  return reinterpret_cast<NSUInteger>([self jx_core].get()) >> 4;
}

- (void)setParent:(id<IJXEventSenderDelegate>)parent {
  static_cast<void>(parent);  // A sender does not use its owner.
}

- (void)setNotificationCenter:(NSNotificationCenter*)center {
  [self jx_core]->setNotificationCenter(coreCenter(center));
}

- (void)send:(NSNotification*)notification {
  if (!isOf([NSNotification class], notification, "JXEventSender.send:")) return;
  postInCore(notification, [self](const jx::JXNotification& core) { [self jx_core]->send(core); });
}

@end

namespace jx::objc {

std::shared_ptr<Core> coreSender(::JXEventSender* sender) {
  return sender == nil ? nullptr : [sender jx_core];
}

::JXEventSender* senderOf(const std::shared_ptr<Core>& core) {
  return core == nullptr ? nil : JX_AUTORELEASE([[::JXEventSender alloc] jx_initWithCore:core]);
}

}  // namespace jx::objc
