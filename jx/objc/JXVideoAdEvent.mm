// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXVideoAdEvent.h"

#include "jx/events/video/JXVideoAdEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXVideoAdEvent;
using namespace jx::objc;

@implementation JXVideoAdEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::initWithMode_andSessionId(static_cast<jx::EJXVideoAdMode>(-1), nullptr);
}

- (instancetype)initWithMode:(EJXVideoAdMode)mode andSessionId:(NSString*)sessionId {
  return [self jx_initWithCore:Core::initWithMode_andSessionId(
                                   static_cast<jx::EJXVideoAdMode>(mode),
                                   toString(sessionId, "JXVideoAdEvent.videoSessionID"))];
}

- (instancetype)init {
  return [super init];
}

- (EJXAdType)adType {
  return static_cast<EJXAdType>(coreOf<Core>(self).adType());
}

- (void)setAdType:(EJXAdType)value {
  coreOf<Core>(self).setAdType(static_cast<jx::EJXAdType>(value));
}

- (EJXAdLoadType)loadType {
  return static_cast<EJXAdLoadType>(coreOf<Core>(self).loadType());
}

- (void)setLoadType:(EJXAdLoadType)value {
  coreOf<Core>(self).setLoadType(static_cast<jx::EJXAdLoadType>(value));
}

- (NSString*)adAssetID {
  return toFoundation(coreOf<Core>(self).adAssetID());
}

- (void)setAdAssetID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoAdEvent.adAssetID")) return;
  coreOf<Core>(self).setAdAssetID(toString(value, "JXVideoAdEvent.adAssetID"));
}

- (NSString*)adPodID {
  return toFoundation(coreOf<Core>(self).adPodID());
}

- (void)setAdPodID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoAdEvent.adPodID")) return;
  coreOf<Core>(self).setAdPodID(toString(value, "JXVideoAdEvent.adPodID"));
}

- (NSDecimalNumber*)podPosition {
  return toFoundation(coreOf<Core>(self).podPosition());
}

- (void)setPodPosition:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoAdEvent.podPosition")) return;
  coreOf<Core>(self).setPodPosition(toDecimal(value, "JXVideoAdEvent.podPosition"));
}

- (NSDecimalNumber*)podLength {
  return toFoundation(coreOf<Core>(self).podLength());
}

- (void)setPodLength:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoAdEvent.podLength")) return;
  coreOf<Core>(self).setPodLength(toDecimal(value, "JXVideoAdEvent.podLength"));
}

- (NSDecimalNumber*)adQuartile {
  return toFoundation(coreOf<Core>(self).adQuartile());
}

- (void)setAdQuartile:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoAdEvent.adQuartile")) return;
  coreOf<Core>(self).setAdQuartile(toDecimal(value, "JXVideoAdEvent.adQuartile"));
}

@end
