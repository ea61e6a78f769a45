// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/notifications/JXEventListener.h"
#include "jx/core/notifications/JXEventSender.h"
#import "jx/objc/JXEventListener.h"
#import "jx/objc/JXEventSender.h"

namespace jx::objc {

/// Returns the C++ sender; null for nil.
std::shared_ptr<JXEventSender> coreSender(::JXEventSender* sender);
/// Returns an object that holds the C++ sender; nil for null.
::JXEventSender* senderOf(const std::shared_ptr<JXEventSender>& core);

/// Returns the C++ listener; null for nil. It calls a parent that was set in Objective-C as long as
/// `listener` exists.
std::shared_ptr<JXEventListener> coreListener(::JXEventListener* listener);
/// Returns the object of `owner` that holds its C++ listener, nil for null. It is `*kept`, which is
/// replaced if it holds another: a listener stops calling a parent that it was given when it ends.
::JXEventListener* keptListener(id owner, id __strong* kept,
                                const std::shared_ptr<JXEventListener>& core);
/// Replaces `*kept`.
void keepListener(id owner, id __strong* kept, ::JXEventListener* listener);

}  // namespace jx::objc
