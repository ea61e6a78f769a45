// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXStoredData.h"

#include <string>

#include "jx/facade/JXStoredData.h"
#import "jx/objc/internal/JXConversion.h"

@implementation JXStoredData

+ (NSArray*)eraseAll {
  NSMutableArray* const left = [NSMutableArray array];
  for (const std::string& line : jx::JXStoredData::eraseAll().left)
    [left addObject:jx::objc::toFoundation(jx::JXString(line))];
  return left;
}

- (instancetype)init {
  return [super init];
}

@end
