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
  /// in it, and objects inside such lists, are not copied: the event or the permanent data contain
  /// the same ones. Do not change them; a change appears in later events. "items" and its elements
  /// are copies, but lists inside an element are shared in the same way.
  virtual void performOperation(std::string_view operation, const JXJsonValue& first,
                                const JXJsonValue& second) = 0;
};

}  // namespace jx
