// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXAdditionalProperties.h"

NS_ASSUME_NONNULL_BEGIN

/// Base of all events that an application passes to `-[ServerSide execute:]`. The application fills
/// an event on one thread and must not change it while it is being executed. An amount that is NaN
/// is not written and counts as not set in `verifyEvent`.
///
/// An application can derive its own classes, with fields of their own: override `getJsonObject`,
/// call the inherited method, add the fields to the dictionary that it returns, and return it.
JX_OBJC_CLASS
@interface JXEvent : JXAdditionalProperties

/// Creates an event without a name.
- (instancetype)init;

/// Returns a new dictionary with a new "event_id" on each call: the additional properties, the
/// event's name, page and context, and the fields of its class. `execute:` calls it for a class
/// that overrides it.
- (NSMutableDictionary<NSString*, id>*)getJsonObject JX_SWIFT_NAME("jsonObject()");
/// Returns YES if the event meets all conditions of its class. `execute:` does not call it: the
/// application decides whether to send an invalid event.
- (BOOL)verifyEvent;
/// Returns the first condition that the event fails, such as "items must contain at least one
/// element"; nil if it fails none.
- (nullable NSString*)firstFailedCondition;
/// Returns the JSON object of each element, an item or a product, in order. An element that has
/// none is logged and skipped; nil yields an empty array.
- (NSMutableArray<NSDictionary<NSString*, id>*>*)getItemListAsJson:(nullable NSArray*)blocks
    JX_SWIFT_NAME("jsonObjects(of:)");

/// Adds a parameter, replacing any value with the same key: a string, or a number, which is added
/// exactly. A nil key or value is ignored.
- (void)addAdditionalParameter:(nullable NSString*)key
                     withValue:(nullable id)value JX_SWIFT_NAME("addAdditionalParameter(_:value:)");
/// Adds a copy of a dictionary, replacing any value with the same key. A nil key or dictionary is
/// ignored.
- (void)addAdditionalParameter:(nullable NSString*)key
                   forJsonDict:(nullable NSDictionary<NSString*, id>*)value
    JX_SWIFT_NAME("addAdditionalParameter(_:dictionary:)");
/// Adds every entry of a dictionary; nil is ignored.
- (void)addAdditionalParameter:(nullable NSDictionary<NSString*, id>*)entries
    JX_SWIFT_NAME("addAdditionalParameters(_:)");

/// The event name, written as "event_name".
@property(nonatomic, copy, nullable) NSString* name;
/// The type of the page that the viewer is on.
@property(nonatomic, copy, nullable) NSString* pageType;
/// The name of the page that the viewer is on.
@property(nonatomic, copy, nullable) NSString* pageName;

@end

NS_ASSUME_NONNULL_END
