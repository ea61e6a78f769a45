// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXEvent.h"

#include <string>

#include "jx/core/JXLogger.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#import "jx/objc/JXItem.h"
#import "jx/objc/internal/JXExecutableEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXEvent;
using namespace jx::objc;

static constexpr char kParameter[] = "JXEvent: additional parameter";

static NSDictionary* jsonOf(id block) {
  @try {
    if ([block respondsToSelector:@selector(getJsonObject)]) return [block getJsonObject];
    isOf([JXItem class], block, "getItemListAsJson:");
  } @catch (id thrown) {
    jx::JXLogger::sharedInstance().logMessage_withLevel(
        "getItemListAsJson: an item failed: " + reasonOf(thrown), 3);
  }
  return nil;
}

@implementation JXEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)init {
  return [super init];
}

- (NSMutableDictionary*)getJsonObject {
  return toFoundation(coreOf<Core>(self).getJsonObject());
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
    // A message is logged for a block of a wrong class.
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
