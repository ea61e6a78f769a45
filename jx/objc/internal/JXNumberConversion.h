// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonValue.h"

// The numbers of JSON values; those of fields are converted by JXConversion.h.
namespace jx::objc {

/// Returns whether the number is a Boolean: these have a class of their own.
bool isBoolean(NSNumber* number);
/// Returns the number exactly, or as the shortest decimal that converts back to it. NaN for a
/// number that is not finite.
JXDecimal decimalOf(NSNumber* number);
/// Returns an NSNumber, or an NSDecimalNumber for more than 18 digits. A number beyond the
/// exponents of NSDecimalNumber becomes the nearest double; NSNull beyond those of a double.
id numberOf(const JXJsonValue& value);

}  // namespace jx::objc
