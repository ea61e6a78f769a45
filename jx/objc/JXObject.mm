// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXObject.h"

#include <utility>

#import "jx/objc/NSString+JXServerSide.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = std::shared_ptr<void>;

// The memory of a new object is zero, which is a null pointer.
static Core& slot(void** memory) { return *static_cast<Core*>(static_cast<void*>(memory)); }

@implementation JXObject

- (instancetype)init {
  return [self jx_initWithHeldCore:[[self class] jx_newHeldCore]];
}

- (instancetype)jx_initWithHeldCore:(std::shared_ptr<void>)core {
  static_assert(sizeof(Core) == sizeof _core, "the C++ object must fit");
  self = [super init];
  if (self != nil) slot(_core) = std::move(core);
  return self;
}

- (void)dealloc {
  slot(_core).~Core();
  JX_SUPER_DEALLOC();
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  return nullptr;
}

- (const std::shared_ptr<void>&)jx_heldCore {
  Core& core = slot(_core);
  if (core == nullptr) core = [[self class] jx_newHeldCore];
  return core;
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[JXObject class]]) return NO;
  return [self jx_heldCore] == [other jx_heldCore] ? YES : NO;
}

- (NSUInteger)hash {
  return reinterpret_cast<NSUInteger>([self jx_heldCore].get()) >> 4;
}

@end

// In the file of a class that every application uses: a linker takes an object file from a static
// library only for a class or a function, not for a category.
@implementation NSString (JXServerSide)

- (BOOL)testString {
  return [self length] > 0 ? YES : NO;
}

@end
