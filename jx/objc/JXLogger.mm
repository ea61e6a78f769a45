// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXLogger.h"

#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"

using Core = jx::JXLogger;
using namespace jx::objc;

@implementation JXLogger

+ (JXLogger*)sharedInstance {
  static JXLogger* const instance = [[JXLogger alloc] init];
  return instance;
}

- (void)logMessage:(NSString*)message withLevel:(int32_t)level {
  const jx::JXString converted = toString(message, "logMessage:withLevel:");
  if (!converted.isPresent()) return;
  Core::sharedInstance().logMessage_withLevel(converted.view(), level);
}

- (BOOL)printsLevel:(int32_t)level {
  return Core::sharedInstance().printsLevel(level) ? YES : NO;
}

- (void)setMaxLevel:(int32_t)level {
  Core::sharedInstance().setMaxLevel(level);
}

@end
