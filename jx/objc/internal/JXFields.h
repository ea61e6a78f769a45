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

/// Returns the array of a list field: the same object each time, until the list is replaced. Nil
/// for a null list. `place` is a string literal.
template <typename List>
JXFieldArray* fieldArray(::JXAdditionalProperties* object, const List& list, const char* place) {
  if (!list.isPresent()) return nil;
  NSString* const field = [NSString stringWithUTF8String:place];
  JXFieldArray* const known = [object jx_partOfField:field];
  if (known != nil && isListOf(*[known jx_list], list)) return known;
  JXFieldArray* const array = makeFieldArray(makeFieldList(list, place), place);
  [object jx_setPart:array forField:field];
  return array;
}

/// Sets a list field to a list of the elements of an array; with nil, to a null list. Another class
/// is logged and ignored. `setter` is an operation of `Core`, the C++ class of the object.
template <typename Core, typename Base, typename List>
void setFieldArray(::JXAdditionalProperties* object, void (Base::*setter)(const List&), id value,
                   const char* place) {
  if (!isNilOr([NSArray class], value, place)) return;
  JXFieldArray* array = nil;
  List list = nullptr;
  if (value != nil) {
    list = List();
    array = makeFieldArray(makeFieldList(list, place), place);
    [array jx_appendAll:value];
  }
  (coreOf<Core>(object).*setter)(list);
  [object jx_setPart:array forField:[NSString stringWithUTF8String:place]];
}

/// Returns the object of a product field: the one that was set, or the same one each time.
::JXProduct* fieldProduct(::JXAdditionalProperties* object,
                          const std::shared_ptr<jx::JXProduct>& product, NSString* field);

}  // namespace jx::objc
