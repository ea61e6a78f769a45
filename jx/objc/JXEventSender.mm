// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEventSender.h"

#include <utility>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreDelegates.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXNotificationBridge.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXEventSender;
using namespace jx::objc;

@implementation JXEventSender

- (instancetype)init {
  return [super init];
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  coreCenter(nil);
  return Core::init();
}

- (void)setParent:(id<IJXEventSenderDelegate>)parent {
  static_cast<void>(parent);  // A sender does not use its owner.
}

- (void)setNotificationCenter:(NSNotificationCenter*)center {
  heldCore<Core>(self)->setNotificationCenter(coreCenter(center));
}

- (void)send:(NSNotification*)notification {
  if (!isOf([NSNotification class], notification, "JXEventSender.send:")) return;
  postInCore(notification,
             [self](const jx::JXNotification& core) { heldCore<Core>(self)->send(core); });
}

@end

namespace jx::objc {

std::shared_ptr<Core> coreSender(::JXEventSender* sender) { return heldCore<Core>(sender); }

::JXEventSender* senderOf(const std::shared_ptr<Core>& core) {
  return core == nullptr ? nil : JX_AUTORELEASE([[::JXEventSender alloc] jx_initWithHeldCore:core]);
}

}  // namespace jx::objc
