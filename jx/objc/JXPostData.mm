// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXPostData.h"

#include "jx/facade/JXPostData.h"
#import "jx/objc/JXEvent.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXExecutableEvent.h"

using namespace jx::objc;

@implementation JXPostData

- (instancetype)init {
  return [super init];
}

+ (NSString*)getPostParameters:(JXEvent*)event withServerSideState:(int32_t)serverSideState {
  if (!isOf([JXEvent class], event, "JXPostData")) return nil;
  return toFoundation(jx::JXPostData::getPostParameters_withServerSideState(*executableEvent(event),
                                                                            serverSideState));
}

@end
