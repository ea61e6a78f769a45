// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXFieldList.h"

#include <string>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/json/JXJsonValue.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXOwnership.h"

namespace jx::objc {
namespace {

class ItemList final : public FieldListOf<JXList<std::shared_ptr<JXItem>>> {
 public:
  using FieldListOf::FieldListOf;
  id elementAt(NSUInteger index, id known) const override {
    const std::shared_ptr<JXItem>& item = list_[index];
    if (item == nullptr) return [NSNull null];
    if (known != nil && sharedCore<JXItem>(known) == item) return known;
    return JX_AUTORELEASE([[::JXItem alloc] jx_initWithCore:item]);
  }
  bool insert(NSUInteger index, id element) override {
    if (!isOf([::JXItem class], element, place())) return false;
    list_.insert(index, sharedCore<JXItem>(element));
    return true;
  }
};

class StringList final : public FieldListOf<JXList<JXString>> {
 public:
  using FieldListOf::FieldListOf;
  id elementAt(NSUInteger index, id) const override {
    NSString* const string = toFoundation(list_[index]);
    return string != nil ? static_cast<id>(string) : [NSNull null];
  }
  bool insert(NSUInteger index, id element) override {
    const bool isNull = [element isKindOfClass:[NSNull class]];
    if (!isNull && !isOf([NSString class], element, place())) return false;
    list_.insert(index, isNull ? JXString() : toString(element, place()));
    return true;
  }
};

class ValueList final : public FieldListOf<JXJsonArray> {
 public:
  using FieldListOf::FieldListOf;
  id elementAt(NSUInteger index, id) const override { return toFoundation(list_.at(index)); }
  bool insert(NSUInteger index, id element) override {
    JXJsonValue value = toJson(element, place());
    if (!value.isPresent()) return false;
    list_.insert(index, std::move(value));
    return true;
  }
};

}  // namespace

std::unique_ptr<FieldList> makeFieldList(JXList<std::shared_ptr<JXItem>> list, const char* place) {
  return std::make_unique<ItemList>(std::move(list), place);
}
std::unique_ptr<FieldList> makeFieldList(JXList<JXString> list, const char* place) {
  return std::make_unique<StringList>(std::move(list), place);
}
std::unique_ptr<FieldList> makeFieldList(JXJsonArray list, const char* place) {
  return std::make_unique<ValueList>(std::move(list), place);
}

}  // namespace jx::objc

@interface JXFieldArray ()
- (instancetype)jx_initWithList:(jx::objc::FieldList*)list
                          place:(const char*)place JX_OBJC_INITIALISER;
@end

@implementation JXFieldArray

- (instancetype)jx_initWithList:(jx::objc::FieldList*)list place:(const char*)place {
  self = [super init];
  if (self == nil) return nil;
  _list = list;
  _place = place;
  _known = [[NSMutableArray alloc] init];
  return self;
}

- (void)dealloc {
  delete _list;
  JX_RELEASE(_known);
  JX_SUPER_DEALLOC();
}

- (BOOL)jx_isIndex:(NSUInteger)index below:(NSUInteger)end {
  if (index < end) return YES;
  jx::JXLogger::sharedInstance().logMessage_withLevel(
      std::string(_place) + ": index " + std::to_string(index) + " is out of range; ignored", 3);
  return NO;
}

- (const jx::objc::FieldList*)jx_list {
  return _list;
}

- (NSUInteger)count {
  return _list->count();
}

- (id)objectAtIndex:(NSUInteger)index {
  if (![self jx_isIndex:index below:_list->count()]) return [NSNull null];
  const id known = index < [_known count] ? [_known objectAtIndex:index] : [NSNull null];
  // The list may have been changed in C++, so that another item is at this index.
  const id element = _list->elementAt(index, known == [NSNull null] ? nil : known);
  if (element != known && [element isKindOfClass:[JXItem class]]) [self jx_keep:element at:index];
  return element;
}

- (void)jx_keep:(JXItem*)item at:(NSUInteger)index {
  const SEL getJsonObject = @selector(getJsonObject);
  if ([item methodForSelector:getJsonObject] != [JXItem instanceMethodForSelector:getJsonObject]) {
    _hasOverridingItem = YES;
  }
  while ([_known count] <= index)
    [_known addObject:[NSNull null]];
  [_known replaceObjectAtIndex:index withObject:item];
}

- (void)insertObject:(id)object atIndex:(NSUInteger)index {
  if (![self jx_isIndex:index below:_list->count() + 1]) return;
  if (!_list->insert(index, object)) return;
  if (index < [_known count]) [_known insertObject:[NSNull null] atIndex:index];
  if ([object isKindOfClass:[JXItem class]]) [self jx_keep:object at:index];
}

- (void)addObject:(id)object {
  [self insertObject:object atIndex:_list->count()];
}

- (void)removeObjectAtIndex:(NSUInteger)index {
  if (![self jx_isIndex:index below:_list->count()]) return;
  _list->removeAt(index);
  if (index < [_known count]) [_known removeObjectAtIndex:index];
}

- (void)removeLastObject {
  if (_list->count() != 0) [self removeObjectAtIndex:_list->count() - 1];
}

- (void)replaceObjectAtIndex:(NSUInteger)index withObject:(id)object {
  if (![self jx_isIndex:index below:_list->count()]) return;
  const NSUInteger before = _list->count();
  [self insertObject:object atIndex:index];
  if (_list->count() > before) [self removeObjectAtIndex:index + 1];
}

- (BOOL)jx_hasOverridingItem {
  return _hasOverridingItem;
}

- (void)jx_appendAll:(id)elements {
  if (!jx::objc::isOf([NSArray class], elements, _place)) return;
  for (id element in elements)
    [self addObject:element];
}

@end

namespace jx::objc {

JXFieldArray* makeFieldArray(std::unique_ptr<FieldList> list, const char* place) {
  return JX_AUTORELEASE([[JXFieldArray alloc] jx_initWithList:list.release() place:place]);
}

}  // namespace jx::objc
