// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXOwnership.h"

namespace jx::objc {

/// Returns a pointer to an object that is never destroyed.
template <typename Core>
std::shared_ptr<Core> unowned(Core& core) {
  return std::shared_ptr<Core>(std::shared_ptr<void>(), &core);
}

/// Returns an object that holds the properties; nil for null.
inline ::JXAdditionalProperties* propertiesOf(
    const std::shared_ptr<JXAdditionalProperties>& properties) {
  if (properties == nullptr) return nil;
  return JX_AUTORELEASE([[::JXAdditionalProperties alloc] jx_initWithCore:properties]);
}

}  // namespace jx::objc

// The accessors of a field that C++ has under the same name. `Core` is the class in C++.
#define JX_STRING_FIELD(Class, name, setter)                         \
  -(NSString*)name {                                                 \
    return toFoundation(coreOf<Core>(self).name());                  \
  }                                                                  \
  -(void)setter : (NSString*)value {                                 \
    if (!isNilOr([NSString class], value, #Class "." #name)) return; \
    coreOf<Core>(self).setter(toString(value, #Class "." #name));    \
  }
#define JX_NUMBER_FIELD(Class, name, setter)                         \
  -(NSDecimalNumber*)name {                                          \
    return toFoundation(coreOf<Core>(self).name());                  \
  }                                                                  \
  -(void)setter : (NSDecimalNumber*)value {                          \
    if (!isNilOr([NSNumber class], value, #Class "." #name)) return; \
    coreOf<Core>(self).setter(toDecimal(value, #Class "." #name));   \
  }
#define JX_BOOL_FIELD(Class, name, setter)       \
  -(BOOL)name {                                  \
    return coreOf<Core>(self).name() ? YES : NO; \
  }                                              \
  -(void)setter : (BOOL)value {                  \
    coreOf<Core>(self).setter(value != NO);      \
  }
