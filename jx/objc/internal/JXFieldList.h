// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include <memory>
#include <utility>

#include "jx/core/JXList.h"
#include "jx/core/json/JXJsonArray.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXString.h"

namespace jx::objc {

/// A list of a C++ object, with elements as Foundation has them.
class FieldList {
 public:
  virtual ~FieldList() = default;
  virtual NSUInteger count() const = 0;
  /// Returns the element at a valid index, never nil: NSNull for a null one. `known` is the object
  /// that was returned for this element, or nil.
  virtual id elementAt(NSUInteger index, id known) const = 0;
  /// Inserts an element before a valid index or at the end. Returns false, after a log message, if
  /// it has a wrong class.
  virtual bool insert(NSUInteger index, id element) = 0;
  virtual void removeAt(NSUInteger index) = 0;
};

/// The list of a field; `place` is the name of the field.
template <typename List>
class FieldListOf : public FieldList {
 public:
  FieldListOf(List list, const char* place) : list_(std::move(list)), place_(place) {}
  const List& list() const { return list_; }
  const char* place() const { return place_; }
  NSUInteger count() const override { return list_.size(); }
  void removeAt(NSUInteger index) override { list_.removeAt(index); }

 protected:
  List list_;

 private:
  const char* const place_;
};

std::unique_ptr<FieldList> makeFieldList(JXList<std::shared_ptr<JXItem>> list, const char* place);
std::unique_ptr<FieldList> makeFieldList(JXList<JXString> list, const char* place);
std::unique_ptr<FieldList> makeFieldList(JXJsonArray list, const char* place);

/// Returns whether both share their elements.
template <typename List>
bool isListOf(const FieldList& fieldList, const List& list) {
  const auto* const same = dynamic_cast<const FieldListOf<List>*>(&fieldList);
  return same != nullptr && same->list().isSameAs(list);
}

}  // namespace jx::objc

/// An array whose elements are those of a list of a C++ object: what is changed here is changed
/// there. An item that was added is returned as the same object. An element of a wrong class is
/// logged and not added. Indexes out of range are logged and ignored, because no exception may
/// reach the application.
@interface JXFieldArray : NSMutableArray {
 @private
  jx::objc::FieldList* _list;
  NSMutableArray* _known;  // returned items by index; NSNull for other elements
  const char* _place;
  BOOL _hasOverridingItem;
}
- (const jx::objc::FieldList*)jx_list;
/// Appends each element of an array, or of any object that can be enumerated like one.
- (void)jx_appendAll:(id)elements;
/// Returns whether the class of an item that was ever added overrides `getJsonObject`.
- (BOOL)jx_hasOverridingItem;
@end

namespace jx::objc {
/// Returns a new array, autoreleased.
JXFieldArray* makeFieldArray(std::unique_ptr<FieldList> list, const char* place);
}  // namespace jx::objc
