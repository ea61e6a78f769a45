// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXCoreInitialisation.h"

#include "jx/core/JXCoreInitialisation.h"

@implementation JXCoreInitialisation

- (instancetype)init {
  self = [super init];
  if (self != nil) jx::JXCoreInitialisation::init();
  return self;
}

@end
