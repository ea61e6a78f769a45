// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "JXNames.h"
#import "JXVideoEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// The progress of the content: start, playback, a quarter reached, completion. `totalLength` is
/// written once, with the fields of JXVideoEvent.
JX_OBJC_CLASS
@interface JXVideoContentEvent : JXVideoEvent

/// Creates an event named after its mode. A mode outside the enumeration yields an event without a
/// name. `sessionId` is the video session ID.
- (instancetype)initWithMode:(EJXVideoContentMode)mode
                andSessionId:(nullable NSString*)sessionId JX_SWIFT_NAME("init(mode:sessionId:)");
/// Unavailable, because an event of this class needs a mode.
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

/// True if the video is a full episode, not a part of it. Always written.
@property(nonatomic) BOOL fullEpisode;
/// True if the video is live. Always written.
@property(nonatomic) BOOL livestream;
/// The identifier of the content pod, a part of the content.
@property(nonatomic, copy, nullable) NSString* contentPodID;
/// A description of the video.
@property(nonatomic, copy, nullable) NSString* videoDescription;
/// The season, as the application names it.
@property(nonatomic, copy, nullable) NSString* season;
/// The episode, as the application names it.
@property(nonatomic, copy, nullable) NSString* episode;
/// The category of the video, a free-form string.
@property(nonatomic, copy, nullable) NSString* videoCategory;
/// The program that the video belongs to.
@property(nonatomic, copy, nullable) NSString* program;
/// The channel that shows the video.
@property(nonatomic, copy, nullable) NSString* channel;
/// The date of the first broadcast, a string in the format that the application chooses. The
/// capital D is historic: JXVideoSettingEvent has `airdate`.
@property(nonatomic, copy, nullable) NSString* airDate;
/// The identifier of the content.
@property(nonatomic, copy, nullable) NSString* contentAssetID;
/// The event's keywords, initially an empty list; callers may append to it. A nil list is not
/// written.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<id>* keywords JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setKeywords:(nullable NSArray<id>*)keywords JX_REFINED_FOR_SWIFT;
/// The bit rate, in the unit that the application uses for all events; written unchanged.
@property(nonatomic, copy, nullable) NSDecimalNumber* bitrate JX_REFINED_FOR_SWIFT;
/// The frame rate, in frames per second.
@property(nonatomic, copy, nullable) NSDecimalNumber* framerate JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
