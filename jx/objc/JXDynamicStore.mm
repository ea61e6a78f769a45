// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXDynamicStore.h"

#include <utility>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXDynamicStore;
using namespace jx::objc;

static constexpr char kPlace[] = "JXDynamicStore";

@implementation JXDynamicStore

- (instancetype)init {
  return [super init];
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  return Core::init();
}

- (void)addData:(NSString*)key withValue:(id)value {
  const jx::JXJsonValue json = toJson(value, kPlace);
  // Only nil removes a key, not a value that JSON does not have.
  if (json.isPresent() || value == nil) {
    heldCore<Core>(self)->addData_withValue(toString(key, kPlace), json);
  }
}

- (void)addData:(id)entries {
  if ([entries isKindOfClass:[JXDynamicStore class]]) {
    heldCore<Core>(self)->addData(*heldCore<Core>(entries));
  } else {
    heldCore<Core>(self)->addData(toJsonObject(entries, kPlace));
  }
}

- (void)clearData {
  heldCore<Core>(self)->clearData();
}

- (id)getData:(NSString*)key {
  return toFoundation(heldCore<Core>(self)->getData(toString(key, kPlace)));
}

- (id)removeData:(NSString*)key {
  return toFoundation(heldCore<Core>(self)->removeData(toString(key, kPlace)));
}

@end

namespace jx::objc {

std::shared_ptr<Core> coreStore(::JXDynamicStore* store) { return heldCore<Core>(store); }

::JXDynamicStore* storeOf(const std::shared_ptr<Core>& core) {
  return core == nullptr ? nil
                         : JX_AUTORELEASE([[::JXDynamicStore alloc] jx_initWithHeldCore:core]);
}

}  // namespace jx::objc
