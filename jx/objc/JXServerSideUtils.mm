// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXServerSideUtils.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/facade/JXServerSideUtils.h"
#import "jx/objc/JXEvent.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXExecutableEvent.h"

using Core = jx::JXServerSideUtils;
using namespace jx::objc;

static constexpr char kPlace[] = "JXServerSideUtils";

static jx::JXJsonObject entriesOf(id dict) {
  const jx::JXJsonObject entries = toJsonObject(dict, kPlace);
  return entries.isPresent() ? entries : jx::JXJsonObject();
}

@implementation JXServerSideUtils

- (instancetype)init {
  return [super init];
}

+ (NSMutableDictionary*)eventPropertiesToDictionary:(JXEvent*)event {
  if (!isOf([JXEvent class], event, kPlace)) return nil;
  return toFoundation(Core::eventPropertiesToDictionary(*executableEvent(event)));
}

+ (NSMutableArray*)itemsToDict:(NSDictionary*)dict {
  return toFoundation(Core::itemsToDict(entriesOf(dict)));
}

+ (void)productToDict:(NSDictionary*)product into:(NSMutableDictionary*)target {
  if (!isOf([NSMutableDictionary class], target, kPlace)) return;
  jx::JXJsonObject entries;
  Core::productToDict_into(entriesOf(product), entries);
  [target addEntriesFromDictionary:toFoundation(entries)];
  [target removeObjectForKey:toFoundation(jx::JXString(jx::JXI_PRODUCT))];
}

+ (void)setProperty:(id)value forKey:(NSString*)key intoPropertiesDict:(NSMutableDictionary*)dict {
  const jx::JXString name = toString(key, kPlace);
  if (!name.isPresent() || !isOf([NSMutableDictionary class], dict, kPlace)) return;
  jx::JXJsonObject entries;
  Core::setProperty_forKey_intoPropertiesDict(toJson(value, kPlace), name.view(), entries);
  [dict addEntriesFromDictionary:toFoundation(entries)];
}

@end
