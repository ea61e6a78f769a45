// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#import "JXEvent.h"

NS_ASSUME_NONNULL_BEGIN

/// The viewer became a lead. `value` and `currency` must be set together or not at all.
JX_OBJC_CLASS
@interface JXGenerateLeadEvent : JXEvent

/// Creates an event with this value and currency, without validating them.
- (instancetype)initWithValue:(nullable NSDecimalNumber*)value
                 withCurrency:(nullable NSString*)currency JX_SWIFT_NAME("init(__value:currency:)");
/// Creates an event named "generate_lead"; all other fields are nil or empty.
- (instancetype)init;

/// The monetary value of the event, in units of `currency`.
@property(nonatomic, copy, nullable) NSDecimalNumber* value JX_REFINED_FOR_SWIFT;
/// The currency of the amounts, preferably an ISO 4217 code such as "EUR".
@property(nonatomic, copy, nullable) NSString* currency;
/// The identifier of the lead.
@property(nonatomic, copy, nullable) NSString* ID;

@end

NS_ASSUME_NONNULL_END
