// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXServerSideInitialisation.h"

#include "jx/facade/JXServerSideInitialisation.h"

@implementation JXServerSideInitialisation

- (instancetype)init {
  self = [super init];
  if (self != nil) jx::JXServerSideInitialisation::init();
  return self;
}

@end
