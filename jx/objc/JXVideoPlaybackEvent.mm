// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXVideoPlaybackEvent.h"

#include "jx/events/video/JXVideoPlaybackEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXVideoPlaybackEvent;
using namespace jx::objc;

@implementation JXVideoPlaybackEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::initWithMode_andSessionId(static_cast<jx::EJXVideoPlaybackMode>(-1), nullptr);
}

- (instancetype)initWithMode:(EJXVideoPlaybackMode)mode andSessionId:(NSString*)sessionId {
  return [self jx_initWithCore:Core::initWithMode_andSessionId(
                                   static_cast<jx::EJXVideoPlaybackMode>(mode),
                                   toString(sessionId, "JXVideoPlaybackEvent.videoSessionID"))];
}

- (instancetype)init {
  return [super init];
}

- (BOOL)fullScreen {
  return coreOf<Core>(self).fullScreen() ? YES : NO;
}

- (void)setFullScreen:(BOOL)value {
  coreOf<Core>(self).setFullScreen(value != NO);
}

- (BOOL)adEnabled {
  return coreOf<Core>(self).adEnabled() ? YES : NO;
}

- (void)setAdEnabled:(BOOL)value {
  coreOf<Core>(self).setAdEnabled(value != NO);
}

- (BOOL)livestream {
  return coreOf<Core>(self).livestream() ? YES : NO;
}

- (void)setLivestream:(BOOL)value {
  coreOf<Core>(self).setLivestream(value != NO);
}

- (NSMutableArray*)contentAssetID {
  return fieldArray(self, coreOf<Core>(self).contentAssetID(),
                    "JXVideoPlaybackEvent.contentAssetID");
}

- (void)setContentAssetID:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setContentAssetID, value, "JXVideoPlaybackEvent.contentAssetID");
}

- (NSMutableArray*)contentPodID {
  return fieldArray(self, coreOf<Core>(self).contentPodID(), "JXVideoPlaybackEvent.contentPodID");
}

- (void)setContentPodID:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setContentPodID, value, "JXVideoPlaybackEvent.contentPodID");
}

- (NSMutableArray*)adAssetID {
  return fieldArray(self, coreOf<Core>(self).adAssetID(), "JXVideoPlaybackEvent.adAssetID");
}

- (void)setAdAssetID:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setAdAssetID, value, "JXVideoPlaybackEvent.adAssetID");
}

- (NSMutableArray*)adPodID {
  return fieldArray(self, coreOf<Core>(self).adPodID(), "JXVideoPlaybackEvent.adPodID");
}

- (void)setAdPodID:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setAdPodID, value, "JXVideoPlaybackEvent.adPodID");
}

- (NSString*)adtype {
  return toFoundation(coreOf<Core>(self).adtype());
}

- (void)setAdtype:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoPlaybackEvent.adtype")) return;
  coreOf<Core>(self).setAdtype(toString(value, "JXVideoPlaybackEvent.adtype"));
}

- (NSDecimalNumber*)seekPosition {
  return toFoundation(coreOf<Core>(self).seekPosition());
}

- (void)setSeekPosition:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoPlaybackEvent.seekPosition")) return;
  coreOf<Core>(self).setSeekPosition(toDecimal(value, "JXVideoPlaybackEvent.seekPosition"));
}

- (NSDecimalNumber*)bitrate {
  return toFoundation(coreOf<Core>(self).bitrate());
}

- (void)setBitrate:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoPlaybackEvent.bitrate")) return;
  coreOf<Core>(self).setBitrate(toDecimal(value, "JXVideoPlaybackEvent.bitrate"));
}

- (NSDecimalNumber*)framerate {
  return toFoundation(coreOf<Core>(self).framerate());
}

- (void)setFramerate:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoPlaybackEvent.framerate")) return;
  coreOf<Core>(self).setFramerate(toDecimal(value, "JXVideoPlaybackEvent.framerate"));
}

- (NSString*)videoPlayer {
  return toFoundation(coreOf<Core>(self).videoPlayer());
}

- (void)setVideoPlayer:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoPlaybackEvent.videoPlayer")) return;
  coreOf<Core>(self).setVideoPlayer(toString(value, "JXVideoPlaybackEvent.videoPlayer"));
}

- (NSDecimalNumber*)sound {
  return toFoundation(coreOf<Core>(self).sound());
}

- (void)setSound:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoPlaybackEvent.sound")) return;
  coreOf<Core>(self).setSound(toDecimal(value, "JXVideoPlaybackEvent.sound"));
}

- (NSString*)imageQuality {
  return toFoundation(coreOf<Core>(self).imageQuality());
}

- (void)setImageQuality:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoPlaybackEvent.imageQuality")) return;
  coreOf<Core>(self).setImageQuality(toString(value, "JXVideoPlaybackEvent.imageQuality"));
}

- (NSString*)interruptionMethod {
  return toFoundation(coreOf<Core>(self).interruptionMethod());
}

- (void)setInterruptionMethod:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoPlaybackEvent.interruptionMethod")) return;
  coreOf<Core>(self).setInterruptionMethod(
      toString(value, "JXVideoPlaybackEvent.interruptionMethod"));
}

- (NSString*)videoCategory {
  return toFoundation(coreOf<Core>(self).videoCategory());
}

- (void)setVideoCategory:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoPlaybackEvent.videoCategory")) return;
  coreOf<Core>(self).setVideoCategory(toString(value, "JXVideoPlaybackEvent.videoCategory"));
}

@end
