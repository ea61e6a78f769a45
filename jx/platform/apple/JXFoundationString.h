// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include "jx/platform/JXString.h"

namespace jx {

/// Converts an NSString; null for nil and for an object of another class, such as a number in a
/// property list.
JXString stringOf(id object);

/// Returns an autoreleased NSString; nil if `string` is null or not UTF-8.
NSString* foundationString(const JXString& string);

}  // namespace jx
