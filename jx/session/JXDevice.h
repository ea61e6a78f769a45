// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>

#include "jx/platform/JXApi.h"
#include "jx/session/JXDeviceFields.h"

namespace jx {

/// The device block: device, operating system, screen, network, advertising identifiers and user
/// agent, with the lifecycle block nested in it. The device's identity is read once, when the
/// object is initialised. `setAdvertisingIds` reads the advertising values. The user agent is read
/// once it is known. Thread-safe.
class JX_API JXDevice : public JXDeviceFields {
 public:
  /// Returns the shared block of this process. The first call creates it and reads the values.
  ///
  /// Create a `ServerSide` first. It makes the SDK ID available; a block created before the first
  /// `ServerSide` has a null `sdkID` and events omit "sdk_id", until `reinit` or `setSdkID` is
  /// called.
  static JXDevice& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXDevice() = default;
  /// Reads the values once per process and returns this object; an object created after the shared
  /// one is returned unchanged. Returns null if the base class cannot be initialised. Does not
  /// return while another `init` is running.
  JXDevice* init();
  /// Reads the values again. Properties that the application added to the "os" and "screen" objects
  /// are removed; other additional properties, the advertising values and the user agent are kept.
  JXDevice* reinit();

  /// Copies the tracking permission and both identifiers from the core's variables.
  void setAdvertisingIds();
  /// Returns the additional properties of the nested "os" object; null before `init`.
  std::shared_ptr<JXAdditionalProperties> getOsProperties() const {
    return JXSessionLock::read(osProperties_);
  }
  /// Returns the additional properties of the nested "screen" object; null before `init`.
  std::shared_ptr<JXAdditionalProperties> getScreenProperties() const {
    return JXSessionLock::read(screenProperties_);
  }
  /// Returns the same object as `getOsProperties`.
  std::shared_ptr<JXAdditionalProperties> osProperties() const { return getOsProperties(); }
  /// Returns the same object as `getScreenProperties`.
  std::shared_ptr<JXAdditionalProperties> screenProperties() const { return getScreenProperties(); }
  /// Reads the user agent if it is still null, and refreshes the lifecycle block.
  void refreshContent();
  /// Returns a new object with the current values. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

 private:
  static std::atomic<int> JX_INIT_STATE;
};

}  // namespace jx
