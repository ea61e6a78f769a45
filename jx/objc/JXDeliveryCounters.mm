// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXDeliveryCounters.h"

#include <memory>

#include "jx/core/transfer/JXDelivery.h"
#import "jx/objc/internal/JXHeldCore.h"

using Core = jx::JXDeliveryCounters;
using namespace jx::objc;

#define JX_COUNTER(name, field)         \
  -(uint64_t)name {                     \
    return heldCore<Core>(self)->field; \
  }

@implementation JXDeliveryCounters

- (instancetype)init {
  return [super init];
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  return std::make_shared<Core>();
}

JX_COUNTER(added, outbox.added)
JX_COUNTER(delivered, outbox.delivered)
JX_COUNTER(rejected, outbox.rejected)
JX_COUNTER(droppedTooMany, outbox.droppedTooMany)
JX_COUNTER(droppedTooLarge, outbox.droppedTooLarge)
JX_COUNTER(droppedTooOld, outbox.droppedTooOld)
JX_COUNTER(droppedNoStorage, outbox.droppedNoStorage)
JX_COUNTER(droppedUnreadable, outbox.droppedUnreadable)
JX_COUNTER(droppedOutOfMemory, outbox.droppedOutOfMemory)
JX_COUNTER(purged, outbox.purged)
JX_COUNTER(storageErrors, outbox.storageErrors)
JX_COUNTER(damaged, outbox.damaged)
JX_COUNTER(quarantinedDeleted, outbox.quarantinedDeleted)
JX_COUNTER(queued, outbox.queued)
JX_COUNTER(queuedBytes, outbox.queuedBytes)
JX_COUNTER(inMemory, outbox.inMemory)
JX_COUNTER(attempts, attempts)
JX_COUNTER(failures, failures)

- (BOOL)paused {
  return heldCore<Core>(self)->paused ? YES : NO;
}

@end
