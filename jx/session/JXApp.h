// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

#include "jx/platform/JXApi.h"
#include "jx/session/JXAppFields.h"

namespace jx {

/// The application block "app": name and version of the application, and the versions of this
/// library, of its core and of the consent configuration. Thread-safe.
class JX_API JXApp : public JXAppFields {
 public:
  /// Returns the shared block of this process. The first call creates it and reads the values.
  static JXApp& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXApp() = default;
  /// Reads the values once per process and returns this object; an object created after the shared
  /// one is returned unchanged. Returns null if the base class cannot be initialised. Does not
  /// return while another `init` is running.
  JXApp* init();
  /// Reads the values again.
  JXApp* reinit();

  /// Reads the consent version again, because consent can change at any time.
  void refreshContent();
  /// Returns a new object with the current consent version. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

 private:
  static std::atomic<int> JX_INIT_STATE;
  JXDynamicStore::Place placeOfConsentVersion_;  ///< in the store of the core's variables
};

}  // namespace jx
