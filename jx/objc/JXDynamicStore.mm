// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXDynamicStore.h"

#include <utility>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreSlot.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXDynamicStore;
using namespace jx::objc;

static constexpr char kPlace[] = "JXDynamicStore";

@implementation JXDynamicStore

- (instancetype)init {
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

// Never null: an object whose initialiser was not called has a new store.
- (const std::shared_ptr<Core>&)jx_core {
  std::shared_ptr<Core>& core = slot<Core>(_core);
  if (core == nullptr) core = Core::init();
  return core;
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[JXDynamicStore class]]) return NO;
  return [self jx_core] == [other jx_core] ? YES : NO;
}

- (NSUInteger)hash {
  return reinterpret_cast<NSUInteger>([self jx_core].get()) >> 4;
}

- (void)addData:(NSString*)key withValue:(id)value {
  const jx::JXJsonValue json = toJson(value, kPlace);
  // Only nil removes a key, not a value that JSON does not have.
  if (json.isPresent() || value == nil) {
    [self jx_core]->addData_withValue(toString(key, kPlace), json);
  }
}

- (id)getData:(NSString*)key {
  return toFoundation([self jx_core]->getData(toString(key, kPlace)));
}

- (id)removeData:(NSString*)key {
  return toFoundation([self jx_core]->removeData(toString(key, kPlace)));
}

@end

namespace jx::objc {

std::shared_ptr<Core> coreStore(::JXDynamicStore* store) {
  return store == nil ? nullptr : [store jx_core];
}

::JXDynamicStore* storeOf(const std::shared_ptr<Core>& core) {
  return core == nullptr ? nil : JX_AUTORELEASE([[::JXDynamicStore alloc] jx_initWithCore:core]);
}

}  // namespace jx::objc
