// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXUserDefaults.h"

#include "jx/core/JXUserDefaults.h"
#import "jx/objc/internal/JXConversion.h"

using Core = jx::JXUserDefaults;
using namespace jx::objc;

static constexpr char kPlace[] = "JXUserDefaults";

@implementation JXUserDefaults

- (instancetype)init {
  return [super init];
}

+ (NSString*)retrieveInfoFromUserDefaults:(NSString*)key {
  return toFoundation(Core::retrieveInfoFromUserDefaults(toString(key, kPlace)));
}

+ (void)saveInfoToUserDefaults:(NSString*)value forLabel:(NSString*)label {
  const jx::JXString converted = toString(value, kPlace);
  // Only nil removes an entry, not an object of a wrong class.
  if (value != nil && !converted.isPresent()) return;
  Core::saveInfoToUserDefaults_forLabel(converted, toString(label, kPlace));
}

@end
