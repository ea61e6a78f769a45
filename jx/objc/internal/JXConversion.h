// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXString.h"

// Conversions between the values of the library and of Foundation. They accept an object of any
// class, because callers are dynamic: one of a wrong class counts as nil, with one log message that
// names `place`, such as "JXPurchaseEvent.coupon". Returned objects are autoreleased.
namespace jx::objc {

/// Returns the string; null for nil. An unpaired surrogate is kept, as three bytes.
JXString toString(id object, const char* place);
/// Returns the string; nil for null. Bytes that are not a character become U+FFFD.
NSString* toFoundation(const JXString& string);

/// Returns the number exactly; nullopt for nil, NaN for a number that is not finite. A number in
/// binary floating point becomes the shortest decimal that converts back to it.
std::optional<JXDecimal> toDecimal(id object, const char* place);
/// Returns the number; nil for nullopt.
NSDecimalNumber* toFoundation(const std::optional<JXDecimal>& number);

/// Returns the value. Strings, numbers, Booleans, NSNull, arrays and dictionaries with strings as
/// keys are converted, with their elements, others count as nil. Absent for nil, for NaN, and for
/// what is nested more deeply than 1,000 levels.
JXJsonValue toJson(id object, const char* place);
/// Returns the object; a null handle for nil.
JXJsonObject toJsonObject(id object, const char* place);
/// Returns the array; a null handle for nil.
JXJsonArray toJsonArray(id object, const char* place);
/// Returns an NSString, NSNumber, NSDecimalNumber, NSNull, NSMutableArray or NSMutableDictionary;
/// nil for an absent value. Booleans and integers of up to 64 bits are an NSNumber.
id toFoundation(const JXJsonValue& value);
/// Returns a new dictionary; nil for a null handle.
NSMutableDictionary* toFoundation(const JXJsonObject& object);
/// Returns a new array; nil for a null handle.
NSMutableArray* toFoundation(const JXJsonArray& array);

/// Returns whether the object is of the class; logs a message if it is neither nil nor of it.
bool isOf(Class type, id object, const char* place);
/// Returns whether the object is nil or of the class; logs a message if it is neither.
bool isNilOr(Class type, id object, const char* place);
/// Returns the reason of what was thrown, which need not be an NSException.
std::string reasonOf(id thrown);

}  // namespace jx::objc
