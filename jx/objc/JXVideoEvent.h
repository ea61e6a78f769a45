// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// Base of the video events: the fields that describe the video session. This class itself has no
/// event name and never passes validation.
JX_OBJC_CLASS
@interface JXVideoEvent : JXEvent

/// Creates an event without a name and without a video session ID.
- (instancetype)init;

/// The video session ID; the same string in all events of a session.
@property(nonatomic, copy, nullable) NSString* videoSessionID;
/// The position of the playhead, in the unit of `totalLength`.
@property(nonatomic, copy, nullable) NSDecimalNumber* cursorPosition JX_REFINED_FOR_SWIFT;
/// The length of the video, preferably in seconds; written unchanged.
@property(nonatomic, copy, nullable) NSDecimalNumber* totalLength JX_REFINED_FOR_SWIFT;
/// The title of the video.
@property(nonatomic, copy, nullable) NSString* videoTitle;
/// The publisher of the video.
@property(nonatomic, copy, nullable) NSString* publisher;

@end

NS_ASSUME_NONNULL_END
