// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXServerSideInitialisation.h"

#include "jx/facade/JXServerSideInitialisation.h"
#import "jx/objc/internal/JXHeldCore.h"

@implementation JXServerSideInitialisation

- (instancetype)init {
  return [super init];
}

+ (std::shared_ptr<void>)jx_newHeldCore {
  return jx::JXServerSideInitialisation::init();
}

@end
