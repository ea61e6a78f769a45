// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

@class JXEvent;

NS_ASSUME_NONNULL_BEGIN

/// Conversions of events to the parameters that are mirrored. Returned objects are new. A nil
/// dictionary is empty; an object of a wrong class is logged and counts as nil. No operation
/// throws.
JX_OBJC_CLASS
@interface JXServerSideUtils : NSObject

/// Returns the event's JSON without the context and user blocks; nil for nil. Nested objects become
/// JSON strings, items become flat objects, and other lists stay lists.
+ (nullable NSMutableDictionary<NSString*, id>*)eventPropertiesToDictionary:
    (nullable JXEvent*)event;
/// Returns an array with a flat object for each element of the "items" list, numbered by "index"
/// from 0. The name is historic: the result is not a dictionary.
+ (NSMutableArray*)itemsToDict:(nullable NSDictionary<NSString*, id>*)dict;
/// Writes the product's entries to `target` and removes "product" from it.
+ (void)productToDict:(nullable NSDictionary<NSString*, id>*)product
                 into:(nullable NSMutableDictionary<NSString*, id>*)target;
/// Stores the value under the key; a dictionary is stored as its JSON string.
+ (void)setProperty:(nullable id)value
                forKey:(nullable NSString*)key
    intoPropertiesDict:(nullable NSMutableDictionary<NSString*, id>*)dict;
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
