// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// Writes values to JSON objects. The setters ignore nil, a dictionary or key that is nil, and an
/// object of a wrong class, which is logged. No operation throws.
JX_OBJC_CLASS
@interface JXUtils : NSObject

/// Writes a string; an empty string is written.
+ (void)setString:(nullable NSString*)value
           forKey:(nullable NSString*)key
           onDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
/// Writes a number exactly. NaN and infinity count as nil.
+ (void)setFloat:(nullable NSNumber*)value
          forKey:(nullable NSString*)key
          onDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
/// Writes the number that the string contains, rounded to 38 digits. Another string counts as nil.
+ (void)setFloatFromString:(nullable NSString*)value
                    forKey:(nullable NSString*)key
                    onDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
/// Writes a Boolean.
+ (void)setBool:(BOOL)value
         forKey:(nullable NSString*)key
         onDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
/// Writes the array itself, not a copy.
+ (void)setArray:(nullable NSArray*)value
          forKey:(nullable NSString*)key
          onDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
/// Writes the dictionary itself, not a copy: entries added to it later appear in `dict`.
+ (void)setJson:(nullable NSDictionary<NSString*, id>*)value
         forKey:(nullable NSString*)key
         onDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
/// Returns the decimal integer at the start of the string, after spaces and tabs; 0 when there is
/// none. A value outside the 64-bit range is clamped to it.
+ (int64_t)numberFromNSString:(nullable NSString*)string;
/// Returns the dictionary as compact JSON; nil for nil.
+ (nullable NSString*)jsonDictionaryToString:(nullable NSDictionary<NSString*, id>*)dictionary;
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
