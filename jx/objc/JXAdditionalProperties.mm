// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXAdditionalProperties.h"

#include <utility>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXCoreStore.h"
#import "jx/objc/internal/JXOwnership.h"

using jx::objc::coreOf;
using jx::objc::toFoundation;
using jx::objc::toJson;
using jx::objc::toJsonObject;
using jx::objc::toString;
using Core = jx::JXAdditionalProperties;

static constexpr char kPlace[] = "JXAdditionalProperties";

@implementation JXAdditionalProperties

// Events, items and blocks are stored as this C++ class, their common base class.
+ (std::shared_ptr<void>)jx_newHeldCore {
  return [self jx_newCore];
}

- (void)dealloc {
  JX_RELEASE(_parts);
  JX_SUPER_DEALLOC();
}

- (NSMutableDictionary*)getAdditionalProperties {
  return toFoundation(coreOf<Core>(self).getAdditionalProperties());
}

- (void)addAdditionalProperty:(NSString*)key withStringValue:(NSString*)value {
  coreOf<Core>(self).addAdditionalProperty_withStringValue(toString(key, kPlace),
                                                           toString(value, kPlace));
}

- (void)addAdditionalProperty:(NSString*)key withNumberValue:(NSNumber*)value {
  if (!jx::objc::isOf([NSNumber class], value, kPlace)) return;
  const jx::JXString name = toString(key, kPlace);
  const jx::JXJsonValue number = toJson(value, kPlace);
  if (number.kind() == jx::JXJsonValue::Kind::Bool) {
    coreOf<Core>(self).addAdditionalProperty_withBoolValue(name, number.boolValue());
  } else {
    coreOf<Core>(self).addAdditionalProperty_withNumberValue(name, number.decimal());
  }
}

- (void)addAdditionalProperty:(NSString*)key withDictValue:(NSDictionary*)value {
  coreOf<Core>(self).addAdditionalProperty_withDictValue(toString(key, kPlace),
                                                         toJsonObject(value, kPlace));
}

- (void)addAdditionalProperty:(id)entries {
  if ([entries isKindOfClass:[JXDynamicStore class]]) {
    coreOf<Core>(self).addAdditionalProperty(*jx::objc::coreStore(entries));
    return;
  }
  coreOf<Core>(self).addAdditionalProperty(toJsonObject(entries, kPlace));
}

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return jx::JXAdditionalProperties::init();
}

- (instancetype)jx_initWithCore:(std::shared_ptr<jx::JXAdditionalProperties>)core {
  return [self jx_initWithHeldCore:std::move(core)];
}

- (void)jx_setPart:(id)part forField:(NSString*)field {
  if (part == nil) {
    [_parts removeObjectForKey:field];
    return;
  }
  if (_parts == nil) _parts = [[NSMutableDictionary alloc] init];
  [_parts setObject:part forKey:field];
}

- (BOOL)jx_hasPart:(bool (*)(id part))isOne {
  for (NSString* field in _parts) {
    if (isOne([_parts objectForKey:field])) return YES;
  }
  return NO;
}

- (id)jx_partOfField:(NSString*)field {
  // The caller may use it after the field was set again.
  return JX_AUTORELEASE(JX_RETAIN([_parts objectForKey:field]));
}

@end
