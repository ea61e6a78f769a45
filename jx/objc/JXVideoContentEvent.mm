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
  coreOf<Core>(self).setContentPodID(toString(value, "JXVideoContentEvent.contentPodID"));
}

- (NSString*)videoDescription {
  return toFoundation(coreOf<Core>(self).videoDescription());
}

- (void)setVideoDescription:(NSString*)value {
  coreOf<Core>(self).setVideoDescription(toString(value, "JXVideoContentEvent.videoDescription"));
}

- (NSString*)season {
  return toFoundation(coreOf<Core>(self).season());
}

- (void)setSeason:(NSString*)value {
  coreOf<Core>(self).setSeason(toString(value, "JXVideoContentEvent.season"));
}

- (NSString*)episode {
  return toFoundation(coreOf<Core>(self).episode());
}

- (void)setEpisode:(NSString*)value {
  coreOf<Core>(self).setEpisode(toString(value, "JXVideoContentEvent.episode"));
}

- (NSString*)videoCategory {
  return toFoundation(coreOf<Core>(self).videoCategory());
}

- (void)setVideoCategory:(NSString*)value {
  coreOf<Core>(self).setVideoCategory(toString(value, "JXVideoContentEvent.videoCategory"));
}

- (NSString*)program {
  return toFoundation(coreOf<Core>(self).program());
}

- (void)setProgram:(NSString*)value {
  coreOf<Core>(self).setProgram(toString(value, "JXVideoContentEvent.program"));
}

- (NSString*)channel {
  return toFoundation(coreOf<Core>(self).channel());
}

- (void)setChannel:(NSString*)value {
  coreOf<Core>(self).setChannel(toString(value, "JXVideoContentEvent.channel"));
}

- (NSString*)airDate {
  return toFoundation(coreOf<Core>(self).airDate());
}

- (void)setAirDate:(NSString*)value {
  coreOf<Core>(self).setAirDate(toString(value, "JXVideoContentEvent.airDate"));
}

- (NSString*)contentAssetID {
  return toFoundation(coreOf<Core>(self).contentAssetID());
}

- (void)setContentAssetID:(NSString*)value {
  coreOf<Core>(self).setContentAssetID(toString(value, "JXVideoContentEvent.contentAssetID"));
}

- (NSMutableArray*)keywords {
  return fieldArray(self, coreOf<Core>(self).keywords(), "JXVideoContentEvent.keywords");
}

- (void)setKeywords:(NSArray*)value {
  coreOf<Core>(self).setKeywords({});
  [fieldArray(self, coreOf<Core>(self).keywords(), "JXVideoContentEvent.keywords")
      jx_appendAll:value];
}

- (NSDecimalNumber*)bitrate {
  return toFoundation(coreOf<Core>(self).bitrate());
}

- (void)setBitrate:(NSDecimalNumber*)value {
  coreOf<Core>(self).setBitrate(toDecimal(value, "JXVideoContentEvent.bitrate"));
}

- (NSDecimalNumber*)framerate {
  return toFoundation(coreOf<Core>(self).framerate());
}

- (void)setFramerate:(NSDecimalNumber*)value {
  coreOf<Core>(self).setFramerate(toDecimal(value, "JXVideoContentEvent.framerate"));
}

@end
