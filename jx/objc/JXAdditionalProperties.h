// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

NS_ASSUME_NONNULL_BEGIN

/// Base class of the objects that an application can extend with its own keys: events, items,
/// products and context blocks. Additional properties come first in the object's JSON; a field with
/// the same key overrides them. Adding a key again replaces its value.
///
/// An object belongs to one thread at a time. Values are copied. A value whose class JSON does not
/// have is logged and ignored; no operation throws.
JX_OBJC_CLASS
@interface JXAdditionalProperties : JXObject {
 @private
  id _Nullable _parts;  // The objects that its fields return.
}

/// Returns all additional properties, as a new dictionary.
- (NSMutableDictionary<NSString*, id>*)
    getAdditionalProperties JX_SWIFT_NAME("additionalProperties()");
/// Adds a string. A nil key or value is ignored; an empty key is valid.
- (void)addAdditionalProperty:(nullable NSString*)key
              withStringValue:(nullable NSString*)value
    JX_SWIFT_NAME("addAdditionalProperty(_:string:)");
/// Adds a number exactly; an NSNumber that holds a Boolean adds a Boolean. A nil key or value, NaN
/// and infinity are ignored.
- (void)addAdditionalProperty:(nullable NSString*)key
              withNumberValue:(nullable NSNumber*)value
    JX_SWIFT_NAME("addAdditionalProperty(_:number:)");
/// Adds a copy of a dictionary, whose keys are strings. A nil key or value is ignored.
- (void)addAdditionalProperty:(nullable NSString*)key
                withDictValue:(nullable NSDictionary<NSString*, id>*)value
    JX_SWIFT_NAME("addAdditionalProperty(_:dictionary:)");
/// Adds every entry of an NSDictionary with string keys, or of a JXDynamicStore; nil is ignored.
- (void)addAdditionalProperty:(nullable id)entries JX_SWIFT_NAME("addAdditionalProperties(_:)");

@end

NS_ASSUME_NONNULL_END
