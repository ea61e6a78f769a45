// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEvent.h"

#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#import "jx/objc/JXECommerceEvent.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/internal/JXExecutableEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXEvent;
using namespace jx::objc;

static constexpr char kParameter[] = "JXEvent: additional parameter";

static NSDictionary* jsonOf(id block) {
  @try {
    if ([block respondsToSelector:@selector(getJsonObject)]) {
      const id object = [block getJsonObject];
      if ([object isKindOfClass:[NSDictionary class]]) return object;
      logFailure(block, "getJsonObject", "it returned no dictionary");
    }
  } @catch (id thrown) {
    logFailure(block, "getJsonObject", reasonOf(thrown));
  }
  // A message is logged for a block of a wrong class.
  if (!isOf([JXItem class], block, "getItemListAsJson:")) return nil;
  return toFoundation(coreOf<jx::JXItem>(block).getJsonObject());
}

@implementation JXEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)init {
  return [super init];
}

- (NSMutableDictionary*)getJsonObject {
  NSMutableDictionary* const object = toFoundation(coreOf<Core>(self).getJsonObject());
  if (hasOverridingItem(self)) {
    // Only events with a field of this name have items.
    const id event = self;
    [object setObject:[self getItemListAsJson:[event items]] forKey:@"items"];
  }
  return object;
}

- (BOOL)verifyEvent {
  return coreOf<Core>(self).verifyEvent() ? YES : NO;
}

- (NSString*)firstFailedCondition {
  return toFoundation(coreOf<Core>(self).firstFailedCondition());
}

- (NSMutableArray*)getItemListAsJson:(NSArray*)blocks {
  NSMutableArray* const objects = [NSMutableArray array];
  if (!isOf([NSArray class], blocks, "getItemListAsJson:")) return objects;
  for (id block in blocks) {
    const id object = jsonOf(block);
    if (object != nil) [objects addObject:object];
  }
  return objects;
}

- (void)addAdditionalParameter:(NSString*)key withValue:(id)value {
  if ([value isKindOfClass:[NSNumber class]]) {
    [self addAdditionalProperty:key withNumberValue:value];
  } else {
    coreOf<Core>(self).addAdditionalParameter_withValue(toString(key, kParameter),
                                                        toString(value, kParameter));
  }
}

- (void)addAdditionalParameter:(NSString*)key forJsonDict:(NSDictionary*)value {
  [self addAdditionalProperty:key withDictValue:value];
}

- (void)addAdditionalParameter:(NSDictionary*)entries {
  [self addAdditionalProperty:entries];
}

- (NSString*)name {
  return toFoundation(coreOf<Core>(self).name());
}

- (void)setName:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXEvent.name")) return;
  coreOf<Core>(self).setName(toString(value, "JXEvent.name"));
}

- (NSString*)pageType {
  return toFoundation(coreOf<Core>(self).pageType());
}

- (void)setPageType:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXEvent.pageType")) return;
  coreOf<Core>(self).setPageType(toString(value, "JXEvent.pageType"));
}

- (NSString*)pageName {
  return toFoundation(coreOf<Core>(self).pageName());
}

- (void)setPageName:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXEvent.pageName")) return;
  coreOf<Core>(self).setPageName(toString(value, "JXEvent.pageName"));
}

@end
