// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// The application block of each event. Every object of this class is the one block of the process.
/// Thread-safe.
JX_OBJC_SENDABLE_CLASS
@interface JXApp : JXAdditionalProperties

/// Returns the object of this process.
+ (JXApp*)sharedInstance JX_SWIFT_NAME("shared()");
/// Reads the values again and returns this object.
- (instancetype)reinit;
/// Reads the consent version again, because consent can change at any time.
- (void)refreshContent;
/// Returns a new dictionary with the current values: the additional properties, overridden by those
/// of the block.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");

/// The application's name; "(unknown)" if it is not configured.
@property(nonatomic, copy, nullable) NSString* name;
/// The version shown to users.
@property(nonatomic, copy, nullable) NSString* version;
/// The build number.
@property(nonatomic, copy, nullable) NSString* build;
/// The bundle identifier, such as "com.example.tv".
@property(nonatomic, copy, nullable) NSString* nameSpace;
/// The library version that events report.
@property(nonatomic, copy, nullable) NSString* serverSideVersion;
/// The version of the library's core.
@property(nonatomic, copy, nullable) NSString* coreVersion;
/// The version of the consent configuration, set by the consent module.
@property(nonatomic, copy, nullable) NSString* consentVersion;

@end

NS_ASSUME_NONNULL_END
