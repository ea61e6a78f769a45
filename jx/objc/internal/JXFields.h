// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXProduct.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/JXProduct.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXFieldList.h"

// The parts of the accessors of the generated classes.
namespace jx::objc {

/// Returns the array of a list field: the same object each time, until the list is replaced.
/// `place` is a string literal.
template <typename List>
JXFieldArray* fieldArray(::JXAdditionalProperties* object, const List& list, const char* place) {
  NSString* const field = [NSString stringWithUTF8String:place];
  JXFieldArray* const known = [object jx_partOfField:field];
  if (known != nil && isListOf(*[known jx_list], list)) return known;
  JXFieldArray* const array = makeFieldArray(makeFieldList(list, place), place);
  [object jx_setPart:array forField:field];
  return array;
}

/// Returns the object of a product field: the one that was set, or the same one each time.
::JXProduct* fieldProduct(::JXAdditionalProperties* object,
                          const std::shared_ptr<jx::JXProduct>& product, NSString* field);

}  // namespace jx::objc
