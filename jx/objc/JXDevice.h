// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// The device block of each event: device, system, screen, identifiers. It contains the network and
/// the lifecycle block. Every object of this class is the one block of the process. Thread-safe.
JX_OBJC_SENDABLE_CLASS
@interface JXDevice : JXAdditionalProperties

/// Returns the object of this process.
+ (JXDevice*)sharedInstance JX_SWIFT_NAME("shared()");
/// Reads the values again. Properties that the application added to the "os" and "screen" objects
/// are removed; other additional properties, the advertising values and the user agent are kept.
/// Returns this object.
- (instancetype)reinit;
/// Copies the tracking permission and both identifiers from the library's variables.
- (void)setAdvertisingIds;
/// Reads the user agent if it is still nil, and refreshes the lifecycle block.
- (void)refreshContent;
/// Returns a new dictionary with the current values: the additional properties, overridden by those
/// of the block.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");
/// Returns the same object of the library as `osProperties`.
- (nullable JXAdditionalProperties*)getOsProperties;
/// Returns the same object of the library as `screenProperties`.
- (nullable JXAdditionalProperties*)getScreenProperties;

/// The additional properties of the nested "os" object.
@property(nonatomic, readonly, nullable) JXAdditionalProperties* osProperties;
/// The additional properties of the nested "screen" object.
@property(nonatomic, readonly, nullable) JXAdditionalProperties* screenProperties;
/// "1" if advertising tracking is allowed. Any other non-empty string counts as not allowed; nil
/// and "" omit "ad_tracking".
@property(nonatomic, copy, nullable) NSString* adTrackingEnabled;
/// The user agent; nil until it is known.
@property(nonatomic, copy, nullable) NSString* user_agent;
/// The advertising identifier; nil before `setAdvertisingIds`.
@property(nonatomic, copy, nullable) NSString* IDFA;
/// The vendor identifier; nil before `setAdvertisingIds`.
@property(nonatomic, copy, nullable) NSString* IDFV;
/// A random UUID, created at the first start of the installation. Nil if the block was created
/// before the first `ServerSide`.
@property(nonatomic, copy, nullable) NSString* sdkID;
/// The first part of the preferred language tag; "-" if the tag has no second part.
@property(nonatomic, copy, nullable) NSString* language;
/// The second part of the preferred language tag; "-" if the tag has no second part.
@property(nonatomic, copy, nullable) NSString* region;
/// The manufacturer's name.
@property(nonatomic, copy, nullable) NSString* manufacturer;
/// The hardware machine identifier.
@property(nonatomic, copy, nullable) NSString* model;
/// The marketing model of the device.
@property(nonatomic, copy, nullable) NSString* name;
/// The runtime name: "tvos".
@property(nonatomic, copy, nullable) NSString* type;
/// The runtime name, written to the "os" object.
@property(nonatomic, copy, nullable) NSString* osName;
/// The operating system version.
@property(nonatomic, copy, nullable) NSString* osVersion;
/// The screen width in points.
@property(nonatomic, copy, nullable) NSDecimalNumber* screenWidth;
/// The screen height in points.
@property(nonatomic, copy, nullable) NSDecimalNumber* screenHeight;
/// The IANA time zone name, such as "Asia/Tokyo".
@property(nonatomic, copy, nullable) NSString* timezone;

@end

NS_ASSUME_NONNULL_END
