// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXVideoSettingEvent.h"

#include "jx/events/video/JXVideoSettingEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXVideoSettingEvent;
using namespace jx::objc;

@implementation JXVideoSettingEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::initWithMode_andSessionId(static_cast<jx::EJXVideoSettingMode>(-1), nullptr);
}

- (instancetype)initWithMode:(EJXVideoSettingMode)mode andSessionId:(NSString*)sessionId {
  return [self jx_initWithCore:Core::initWithMode_andSessionId(
                                   static_cast<jx::EJXVideoSettingMode>(mode),
                                   toString(sessionId, "JXVideoSettingEvent.videoSessionID"))];
}

- (instancetype)init {
  return [super init];
}

- (BOOL)fullEpisode {
  return coreOf<Core>(self).fullEpisode() ? YES : NO;
}

- (void)setFullEpisode:(BOOL)value {
  coreOf<Core>(self).setFullEpisode(value != NO);
}

- (BOOL)livestream {
  return coreOf<Core>(self).livestream() ? YES : NO;
}

- (void)setLivestream:(BOOL)value {
  coreOf<Core>(self).setLivestream(value != NO);
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

- (NSString*)contentPodID {
  return toFoundation(coreOf<Core>(self).contentPodID());
}

- (void)setContentPodID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.contentPodID")) return;
  coreOf<Core>(self).setContentPodID(toString(value, "JXVideoSettingEvent.contentPodID"));
}

- (NSString*)contentAssetID {
  return toFoundation(coreOf<Core>(self).contentAssetID());
}

- (void)setContentAssetID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.contentAssetID")) return;
  coreOf<Core>(self).setContentAssetID(toString(value, "JXVideoSettingEvent.contentAssetID"));
}

- (NSString*)adAssetID {
  return toFoundation(coreOf<Core>(self).adAssetID());
}

- (void)setAdAssetID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.adAssetID")) return;
  coreOf<Core>(self).setAdAssetID(toString(value, "JXVideoSettingEvent.adAssetID"));
}

- (NSString*)adPodID {
  return toFoundation(coreOf<Core>(self).adPodID());
}

- (void)setAdPodID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.adPodID")) return;
  coreOf<Core>(self).setAdPodID(toString(value, "JXVideoSettingEvent.adPodID"));
}

- (NSString*)adType {
  return toFoundation(coreOf<Core>(self).adType());
}

- (void)setAdType:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.adType")) return;
  coreOf<Core>(self).setAdType(toString(value, "JXVideoSettingEvent.adType"));
}

- (NSString*)videoDescription {
  return toFoundation(coreOf<Core>(self).videoDescription());
}

- (void)setVideoDescription:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.videoDescription")) return;
  coreOf<Core>(self).setVideoDescription(toString(value, "JXVideoSettingEvent.videoDescription"));
}

- (NSMutableArray*)keywords {
  return fieldArray(self, coreOf<Core>(self).keywords(), "JXVideoSettingEvent.keywords");
}

- (void)setKeywords:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setKeywords, value, "JXVideoSettingEvent.keywords");
}

- (NSString*)season {
  return toFoundation(coreOf<Core>(self).season());
}

- (void)setSeason:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.season")) return;
  coreOf<Core>(self).setSeason(toString(value, "JXVideoSettingEvent.season"));
}

- (NSString*)episode {
  return toFoundation(coreOf<Core>(self).episode());
}

- (void)setEpisode:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.episode")) return;
  coreOf<Core>(self).setEpisode(toString(value, "JXVideoSettingEvent.episode"));
}

- (NSString*)videoCategory {
  return toFoundation(coreOf<Core>(self).videoCategory());
}

- (void)setVideoCategory:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.videoCategory")) return;
  coreOf<Core>(self).setVideoCategory(toString(value, "JXVideoSettingEvent.videoCategory"));
}

- (NSString*)program {
  return toFoundation(coreOf<Core>(self).program());
}

- (void)setProgram:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.program")) return;
  coreOf<Core>(self).setProgram(toString(value, "JXVideoSettingEvent.program"));
}

- (NSString*)channel {
  return toFoundation(coreOf<Core>(self).channel());
}

- (void)setChannel:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.channel")) return;
  coreOf<Core>(self).setChannel(toString(value, "JXVideoSettingEvent.channel"));
}

- (NSString*)airdate {
  return toFoundation(coreOf<Core>(self).airdate());
}

- (void)setAirdate:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.airdate")) return;
  coreOf<Core>(self).setAirdate(toString(value, "JXVideoSettingEvent.airdate"));
}

- (NSDecimalNumber*)bitrate {
  return toFoundation(coreOf<Core>(self).bitrate());
}

- (void)setBitrate:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoSettingEvent.bitrate")) return;
  coreOf<Core>(self).setBitrate(toDecimal(value, "JXVideoSettingEvent.bitrate"));
}

- (NSDecimalNumber*)framerate {
  return toFoundation(coreOf<Core>(self).framerate());
}

- (void)setFramerate:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoSettingEvent.framerate")) return;
  coreOf<Core>(self).setFramerate(toDecimal(value, "JXVideoSettingEvent.framerate"));
}

- (NSDecimalNumber*)sound {
  return toFoundation(coreOf<Core>(self).sound());
}

- (void)setSound:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoSettingEvent.sound")) return;
  coreOf<Core>(self).setSound(toDecimal(value, "JXVideoSettingEvent.sound"));
}

- (NSString*)imageQuality {
  return toFoundation(coreOf<Core>(self).imageQuality());
}

- (void)setImageQuality:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoSettingEvent.imageQuality")) return;
  coreOf<Core>(self).setImageQuality(toString(value, "JXVideoSettingEvent.imageQuality"));
}

@end
