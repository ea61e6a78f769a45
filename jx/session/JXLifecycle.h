// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXApi.h"
#include "jx/session/JXLifecycleFields.h"

namespace jx {

/// The lifecycle block inside the device block: visit, session and usage time of an event. Each
/// serialisation copies the predefined variables to the fields, which keep these values until the
/// next one. Thread-safe.
class JX_API JXLifecycle final : public JXLifecycleFields {
 public:
  /// Returns the shared block of this process.
  static JXLifecycle& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXLifecycle() = default;
  /// Returns this object on the first call in a process. Later calls never return, because a second
  /// lifecycle block must not exist. Returns null if the base class cannot be initialised.
  JXLifecycle* init();

  /// Copies the current variables into the fields.
  void refreshContent();
  /// Returns a new object with the current values. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();
};

}  // namespace jx
