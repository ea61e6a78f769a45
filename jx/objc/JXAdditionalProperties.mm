// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXAdditionalProperties.h"

#include <new>
#include <utility>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXOwnership.h"

using jx::objc::toFoundation;
using jx::objc::toJson;
using jx::objc::toJsonObject;
using jx::objc::toString;
using Core = std::shared_ptr<jx::JXAdditionalProperties>;

static constexpr char kPlace[] = "JXAdditionalProperties";

@implementation JXAdditionalProperties

- (instancetype)init {
  return [self jx_initWithCore:[[self class] jx_newCore]];
}

- (void)dealloc {
  JX_RELEASE(_parts);
  static_cast<Core*>(static_cast<void*>(_core))->~Core();
  JX_SUPER_DEALLOC();
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[JXAdditionalProperties class]]) return NO;
  return [self jx_core] == [other jx_core] ? YES : NO;
}

- (NSUInteger)hash {
  return reinterpret_cast<NSUInteger>([self jx_core].get()) >> 4;
}

- (NSMutableDictionary*)getAdditionalProperties {
  return toFoundation([self jx_core]->getAdditionalProperties());
}

- (void)addAdditionalProperty:(NSString*)key withStringValue:(NSString*)value {
  [self jx_core]->addAdditionalProperty_withStringValue(toString(key, kPlace),
                                                        toString(value, kPlace));
}

- (void)addAdditionalProperty:(NSString*)key withNumberValue:(NSNumber*)value {
  if (!jx::objc::isOf([NSNumber class], value, kPlace)) return;
  const jx::JXString name = toString(key, kPlace);
  const jx::JXJsonValue number = toJson(value, kPlace);
  if (number.kind() == jx::JXJsonValue::Kind::Bool) {
    [self jx_core]->addAdditionalProperty_withBoolValue(name, number.boolValue());
  } else {
    [self jx_core]->addAdditionalProperty_withNumberValue(name, number.decimal());
  }
}

- (void)addAdditionalProperty:(NSString*)key withDictValue:(NSDictionary*)value {
  [self jx_core]->addAdditionalProperty_withDictValue(toString(key, kPlace),
                                                      toJsonObject(value, kPlace));
}

- (void)addAdditionalProperty:(id)entries {
  if ([entries isKindOfClass:[JXDynamicStore class]]) {
    [self jx_core]->addAdditionalProperty(*jx::objc::coreStore(entries));
    return;
  }
  [self jx_core]->addAdditionalProperty(toJsonObject(entries, kPlace));
}

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return jx::JXAdditionalProperties::init();
}

- (instancetype)jx_initWithCore:(std::shared_ptr<jx::JXAdditionalProperties>)core {
  self = [super init];
  if (self == nil) return nil;
  // The memory of a new object is zero, which is a null pointer.
  static_assert(sizeof(Core) == sizeof _core, "the C++ object must fit");
  *static_cast<Core*>(static_cast<void*>(_core)) = std::move(core);
  return self;
}

- (const std::shared_ptr<jx::JXAdditionalProperties>&)jx_core {
  Core& core = *static_cast<Core*>(static_cast<void*>(_core));
  if (core == nullptr) core = [[self class] jx_newCore];
  return core;
}

- (void)jx_setPart:(id)part forField:(NSString*)field {
  if (part == nil) {
    [_parts removeObjectForKey:field];
    return;
  }
  if (_parts == nil) _parts = [[NSMutableDictionary alloc] init];
  [_parts setObject:part forKey:field];
}

- (id)jx_partOfField:(NSString*)field {
  return [_parts objectForKey:field];
}

@end
