// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXFields.h"

#import "jx/objc/internal/JXOwnership.h"

namespace jx::objc {

::JXProduct* fieldProduct(::JXAdditionalProperties* object,
                          const std::shared_ptr<jx::JXProduct>& product, NSString* field) {
  if (product == nullptr) return nil;
  ::JXProduct* const known = [object jx_partOfField:field];
  if (known != nil && sharedCore<jx::JXProduct>(known) == product) return known;
  ::JXProduct* const created = JX_AUTORELEASE([[::JXProduct alloc] jx_initWithCore:product]);
  [object jx_setPart:created forField:field];
  return created;
}

}  // namespace jx::objc
