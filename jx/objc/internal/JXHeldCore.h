// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#import "jx/objc/JXObject.h"

/// For methods that initialise like `init` and whose names begin differently.
#define JX_OBJC_INITIALISER __attribute__((objc_method_family(init)))

/// The C++ object of an Objective-C object, without its type. Each class stores one type only.
@interface JXObject (JXHeldCore)
/// Returns a new C++ object, as `init` creates it. Every class overrides this.
+ (std::shared_ptr<void>)jx_newHeldCore;
/// Creates an object that holds `core`; with null, a new one.
- (instancetype)jx_initWithHeldCore:(std::shared_ptr<void>)core JX_OBJC_INITIALISER;
/// Returns the C++ object, never null: an object whose initialiser was not called has a new one.
- (const std::shared_ptr<void>&)jx_heldCore;
@end

namespace jx::objc {

/// Returns the C++ object; null for nil. `Core` is the type that the object's class stores.
template <typename Core>
std::shared_ptr<Core> heldCore(::JXObject* object) {
  return object == nil ? nullptr : std::static_pointer_cast<Core>([object jx_heldCore]);
}

}  // namespace jx::objc
