// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "JXNames.h"
#import "JXVideoEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// A change in the playback: start, pause, resume, error, buffering, seeking or completion.
/// Playback may span several assets and pods, so these are lists.
JX_OBJC_CLASS
@interface JXVideoPlaybackEvent : JXVideoEvent

/// Creates an event named after its mode. A mode outside the enumeration yields an event without a
/// name. `sessionId` is the video session ID.
- (instancetype)initWithMode:(EJXVideoPlaybackMode)mode
                andSessionId:(nullable NSString*)sessionId JX_SWIFT_NAME("init(mode:sessionId:)");
/// Unavailable, because an event of this class needs a mode.
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

/// True if the video fills the screen. Always written.
@property(nonatomic) BOOL fullScreen;
/// True if advertisements are enabled. Always written.
@property(nonatomic) BOOL adEnabled;
/// True if the video is live. Always written.
@property(nonatomic) BOOL livestream;
/// The content assets of the playback, initially an empty list; callers may append to it. A nil
/// list is not written.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<id>* contentAssetID JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setContentAssetID:(nullable NSArray<id>*)contentAssetID JX_REFINED_FOR_SWIFT;
/// The content pods of the playback; same rules as `contentAssetID`.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<id>* contentPodID JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setContentPodID:(nullable NSArray<id>*)contentPodID JX_REFINED_FOR_SWIFT;
/// The advertisements of the playback; same rules as `contentAssetID`.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<id>* adAssetID JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setAdAssetID:(nullable NSArray<id>*)adAssetID JX_REFINED_FOR_SWIFT;
/// The ad breaks of the playback; same rules as `contentAssetID`.
/// Changes of the array change the list.
@property(nonatomic, readonly, nullable) NSMutableArray<id>* adPodID JX_REFINED_FOR_SWIFT;
/// Replaces the list by a copy; nil removes it.
- (void)setAdPodID:(nullable NSArray<id>*)adPodID JX_REFINED_FOR_SWIFT;
/// The type of the advertisement, a free-form string. The lower-case t is historic: the other video
/// events have `adType`.
@property(nonatomic, copy, nullable) NSString* adtype;
/// The start or end position of a seek, in the unit of `cursorPosition`.
@property(nonatomic, copy, nullable) NSDecimalNumber* seekPosition JX_REFINED_FOR_SWIFT;
/// The bit rate, in the unit that the application uses for all events; written unchanged.
@property(nonatomic, copy, nullable) NSDecimalNumber* bitrate JX_REFINED_FOR_SWIFT;
/// The frame rate, in frames per second.
@property(nonatomic, copy, nullable) NSDecimalNumber* framerate JX_REFINED_FOR_SWIFT;
/// The name of the player.
@property(nonatomic, copy, nullable) NSString* videoPlayer;
/// The volume, on the scale that the application uses for all events.
@property(nonatomic, copy, nullable) NSDecimalNumber* sound JX_REFINED_FOR_SWIFT;
/// The image quality, a free-form string such as "2160p".
@property(nonatomic, copy, nullable) NSString* imageQuality;
/// The cause of an interruption of the video, a free-form string.
@property(nonatomic, copy, nullable) NSString* interruptionMethod;
/// The category of the video, a free-form string.
@property(nonatomic, copy, nullable) NSString* videoCategory;

@end

NS_ASSUME_NONNULL_END
