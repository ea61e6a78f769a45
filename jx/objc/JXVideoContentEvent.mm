// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "jx/objc/JXVideoContentEvent.h"

#include "jx/events/video/JXVideoContentEvent.h"
#import "jx/objc/internal/JXFields.h"

using Core = jx::JXVideoContentEvent;
using namespace jx::objc;

@implementation JXVideoContentEvent

+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {
  return Core::initWithMode_andSessionId(static_cast<jx::EJXVideoContentMode>(-1), nullptr);
}

- (instancetype)initWithMode:(EJXVideoContentMode)mode andSessionId:(NSString*)sessionId {
  return [self jx_initWithCore:Core::initWithMode_andSessionId(
                                   static_cast<jx::EJXVideoContentMode>(mode),
                                   toString(sessionId, "JXVideoContentEvent.videoSessionID"))];
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

- (NSString*)contentPodID {
  return toFoundation(coreOf<Core>(self).contentPodID());
}

- (void)setContentPodID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.contentPodID")) return;
  coreOf<Core>(self).setContentPodID(toString(value, "JXVideoContentEvent.contentPodID"));
}

- (NSString*)videoDescription {
  return toFoundation(coreOf<Core>(self).videoDescription());
}

- (void)setVideoDescription:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.videoDescription")) return;
  coreOf<Core>(self).setVideoDescription(toString(value, "JXVideoContentEvent.videoDescription"));
}

- (NSString*)season {
  return toFoundation(coreOf<Core>(self).season());
}

- (void)setSeason:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.season")) return;
  coreOf<Core>(self).setSeason(toString(value, "JXVideoContentEvent.season"));
}

- (NSString*)episode {
  return toFoundation(coreOf<Core>(self).episode());
}

- (void)setEpisode:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.episode")) return;
  coreOf<Core>(self).setEpisode(toString(value, "JXVideoContentEvent.episode"));
}

- (NSString*)videoCategory {
  return toFoundation(coreOf<Core>(self).videoCategory());
}

- (void)setVideoCategory:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.videoCategory")) return;
  coreOf<Core>(self).setVideoCategory(toString(value, "JXVideoContentEvent.videoCategory"));
}

- (NSString*)program {
  return toFoundation(coreOf<Core>(self).program());
}

- (void)setProgram:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.program")) return;
  coreOf<Core>(self).setProgram(toString(value, "JXVideoContentEvent.program"));
}

- (NSString*)channel {
  return toFoundation(coreOf<Core>(self).channel());
}

- (void)setChannel:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.channel")) return;
  coreOf<Core>(self).setChannel(toString(value, "JXVideoContentEvent.channel"));
}

- (NSString*)airDate {
  return toFoundation(coreOf<Core>(self).airDate());
}

- (void)setAirDate:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.airDate")) return;
  coreOf<Core>(self).setAirDate(toString(value, "JXVideoContentEvent.airDate"));
}

- (NSString*)contentAssetID {
  return toFoundation(coreOf<Core>(self).contentAssetID());
}

- (void)setContentAssetID:(NSString*)value {
  if (!isNilOr([NSString class], value, "JXVideoContentEvent.contentAssetID")) return;
  coreOf<Core>(self).setContentAssetID(toString(value, "JXVideoContentEvent.contentAssetID"));
}

- (NSMutableArray*)keywords {
  return fieldArray(self, coreOf<Core>(self).keywords(), "JXVideoContentEvent.keywords");
}

- (void)setKeywords:(NSArray*)value {
  setFieldArray<Core>(self, &Core::setKeywords, value, "JXVideoContentEvent.keywords");
}

- (NSDecimalNumber*)bitrate {
  return toFoundation(coreOf<Core>(self).bitrate());
}

- (void)setBitrate:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoContentEvent.bitrate")) return;
  coreOf<Core>(self).setBitrate(toDecimal(value, "JXVideoContentEvent.bitrate"));
}

- (NSDecimalNumber*)framerate {
  return toFoundation(coreOf<Core>(self).framerate());
}

- (void)setFramerate:(NSDecimalNumber*)value {
  if (!isNilOr([NSNumber class], value, "JXVideoContentEvent.framerate")) return;
  coreOf<Core>(self).setFramerate(toDecimal(value, "JXVideoContentEvent.framerate"));
}

@end
