// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/video.toml by scripts/catalogue. Do not edit.
#import "JXNames.h"
#import "JXVideoEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// A change in an advertisement or ad break: start, progress, stop, completion, skip or click. The
/// ad type and load type are always written, by default as "pre-roll" and "dynamic"; only a value
/// outside its enumeration is not written.
JX_OBJC_CLASS
@interface JXVideoAdEvent : JXVideoEvent

/// Creates an event named after its mode. A mode outside the enumeration yields an event without a
/// name. `sessionId` is the video session ID.
- (instancetype)initWithMode:(EJXVideoAdMode)mode
                andSessionId:(nullable NSString*)sessionId JX_SWIFT_NAME("init(mode:sessionId:)");
/// Unavailable, because an event of this class needs a mode.
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

/// The type of the advertisement. A value outside the enumeration is stored but not written.
@property(nonatomic) EJXAdType adType;
/// The load type of the advertisement. A value outside the enumeration is stored but not written.
@property(nonatomic) EJXAdLoadType loadType;
/// The identifier of the advertisement.
@property(nonatomic, copy, nullable) NSString* adAssetID;
/// The identifier of the ad pod, the break that contains the advertisement.
@property(nonatomic, copy, nullable) NSString* adPodID;
/// The position of the advertisement in its break.
@property(nonatomic, copy, nullable) NSDecimalNumber* podPosition JX_REFINED_FOR_SWIFT;
/// The length of the break, in the unit that the application chooses.
@property(nonatomic, copy, nullable) NSDecimalNumber* podLength JX_REFINED_FOR_SWIFT;
/// The quarter of the advertisement that was reached, from 1 to 4. The range is not validated.
@property(nonatomic, copy, nullable) NSDecimalNumber* adQuartile JX_REFINED_FOR_SWIFT;

@end

NS_ASSUME_NONNULL_END
