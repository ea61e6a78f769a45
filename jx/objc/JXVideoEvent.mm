// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXVideoEvent.h"

#include "jx/events/video/JXVideoEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXVideoEvent;
using namespace jx::objc;

@implementation JXVideoEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::init();
}

- (instancetype)init {
  return [super init];
}

- (NSString*)videoSessionID {
  return toFoundation(coreOf<Core>(self).videoSessionID());
}

- (void)setVideoSessionID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoEvent.videoSessionID")) return;
  coreOf<Core>(self).setVideoSessionID(toString(value, "JXVideoEvent.videoSessionID"));
}

- (NSDecimalNumber*)cursorPosition {
  return toFoundation(coreOf<Core>(self).cursorPosition());
}

- (void)setCursorPosition:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoEvent.cursorPosition")) return;
  coreOf<Core>(self).setCursorPosition(toDecimal(value, "JXVideoEvent.cursorPosition"));
}

- (NSDecimalNumber*)totalLength {
  return toFoundation(coreOf<Core>(self).totalLength());
}

- (void)setTotalLength:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoEvent.totalLength")) return;
  coreOf<Core>(self).setTotalLength(toDecimal(value, "JXVideoEvent.totalLength"));
}

- (NSString*)videoTitle {
  return toFoundation(coreOf<Core>(self).videoTitle());
}

- (void)setVideoTitle:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoEvent.videoTitle")) return;
  coreOf<Core>(self).setVideoTitle(toString(value, "JXVideoEvent.videoTitle"));
}

- (NSString*)publisher {
  return toFoundation(coreOf<Core>(self).publisher());
}

- (void)setPublisher:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoEvent.publisher")) return;
  coreOf<Core>(self).setPublisher(toString(value, "JXVideoEvent.publisher"));
}

@end
