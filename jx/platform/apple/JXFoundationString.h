// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include "jx/platform/JXString.h"

namespace jx {

/// The text of an NSString; absent for nil and for an object of another class, such as a number
/// that somebody wrote into a property list.
JXString textOf(id object);

/// An autoreleased NSString; nil when `text` is absent or no UTF-8.
NSString* foundationString(const JXString& text);

}  // namespace jx
