// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <memory>

#include "jx/core/notifications/JXNotificationCenter.h"

// Connects each NSNotificationCenter that the application passes with a center of the library, the
// default one with the default one. A notification that is posted on either one reaches the
// observers of both, once, on the thread that posts it. From Foundation only the notifications of
// the library and those that a JXEventListener listens for are passed on.
namespace jx::objc {

/// Returns the center that is connected with `center`; with nil, or an object of another class,
/// which is logged, the default one. A connection lasts as long as the process.
std::shared_ptr<JXNotificationCenter> coreCenter(NSNotificationCenter* center);

/// Passes notifications with this name on too, from every connected center. Those of the system are
/// passed on anyway.
void passOn(NSString* name);

/// Calls `post` with the notification in C++. Observers in Objective-C receive `notification`.
void postInCore(NSNotification* notification,
                const std::function<void(const JXNotification&)>& post);

/// Returns the notification that `postInCore` is posting as `notification`, or else a new one.
NSNotification* foundationOf(const JXNotification& notification);

/// Adds the object that observers in Objective-C receive for a C++ object; it is not retained.
void addObject(id object, const void* core);
/// Removes an object that ends, if it was added.
void removeObject(id object);

/// Logs an exception of an observer.
void logObserverException(NSString* name, id thrown);

}  // namespace jx::objc
