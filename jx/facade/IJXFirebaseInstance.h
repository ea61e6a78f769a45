// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// An object that is called by the name of its operation: how a host hands in a Firebase Analytics
/// instance without the library knowing its type. Both operations are called on the thread that
/// executes an event or makes the `ServerSide`; what they throw is logged and dropped.
class JX_API IJXFirebaseInstance {
 public:
  virtual ~IJXFirebaseInstance() = default;

  /// True when the object has an operation of this name, such as "logEventWithName:parameters:".
  /// An operation that it does not answer is never performed.
  virtual bool respondsToOperation(std::string_view operation) = 0;
  /// Performs the operation with its two arguments. A JSON object that is passed is the receiver's
  /// to keep.
  virtual void performOperation(std::string_view operation, const JXJsonValue& first,
                                const JXJsonValue& second) = 0;
};

}  // namespace jx
