// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/JXAdditionalProperties.h"
#import "jx/objc/JXAdditionalProperties.h"
#import "jx/objc/internal/JXHeldCore.h"

/// The C++ object of an Objective-C object. Every class has a C++ class of the same name.
@interface JXAdditionalProperties (JXCoreObject)
/// Returns a new C++ object, as `init` creates it. Every class overrides this.
+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore;
/// Creates an object that holds `core`; with null, a new one.
- (instancetype)jx_initWithCore:(std::shared_ptr<jx::JXAdditionalProperties>)core
    JX_OBJC_INITIALISER;
/// Keeps an object that a field returns; nil removes it.
- (void)jx_setPart:(id)part forField:(NSString*)field;
/// Returns the object that a field has returned, or nil.
- (id)jx_partOfField:(NSString*)field;
/// Returns whether `isOne` returns true for an object that a field has returned.
- (BOOL)jx_hasPart:(bool (*)(id part))isOne;
@end

namespace jx::objc {

/// Returns the C++ object; null for nil. `Core` is the C++ class of the object's class.
template <typename Core>
std::shared_ptr<Core> sharedCore(::JXAdditionalProperties* object) {
  return std::static_pointer_cast<Core>(heldCore<JXAdditionalProperties>(object));
}

/// Returns the C++ object, whose reference is not counted.
template <typename Core>
Core& coreOf(::JXAdditionalProperties* object) {
  return static_cast<Core&>(*static_cast<JXAdditionalProperties*>([object jx_heldCore].get()));
}

}  // namespace jx::objc
