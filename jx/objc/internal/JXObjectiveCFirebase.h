// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include <memory>

#include "jx/facade/IJXFirebaseInstance.h"

namespace jx::objc {

/// Returns an interface to the object, which it retains; null for nil. The object's methods are
/// found by name. They receive new Foundation objects, which they may keep and change.
std::shared_ptr<IJXFirebaseInstance> firebaseOf(id object);
/// Returns the object that was passed to `firebaseOf`; nil for null and for another interface.
id instanceOf(const std::shared_ptr<IJXFirebaseInstance>& firebase);

}  // namespace jx::objc
