// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Interface to an object whose operations are called by name. The application implements it to
/// pass a Firebase Analytics instance to the library, which does not depend on that type. Both
/// operations are called on the thread that executes an event or creates the `ServerSide`.
/// Exceptions that they throw are caught and logged.
class JX_API IJXFirebaseInstance {
 public:
  virtual ~IJXFirebaseInstance() = default;

  /// Returns true if the object supports the operation, such as "logEventWithName:parameters:".
  /// The library never performs an operation for which this returns false.
  virtual bool respondsToOperation(std::string_view operation) = 0;
  /// Performs the operation with its two arguments.
  ///
  /// For an event, `second` is a new JSON object that the implementation may keep and change. Lists
  /// that the application supplied (additional parameters, permanent data, the ID lists of a
  /// playback event) are shared with the event, not copied, and so are the objects in them. Copy
  /// such a list instead of changing it: a change appears in later events. The list "items" and its
  /// elements are copies; lists that the application added to an item are shared.
  virtual void performOperation(std::string_view operation, const JXJsonValue& first,
                                const JXJsonValue& second) = 0;
};

}  // namespace jx
