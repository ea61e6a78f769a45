// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>
#include <mutex>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXPlatform.h"

namespace jx {

class JXDefaultsFile;

/// Everything that the core stands on, wired in one place from the configuration when the first
/// part of the core is asked for. Thread-safe; never destroyed.
class JXCoreServices {
 public:
  static JXCoreServices& sharedInstance();
  /// True from the moment that the configuration has been read.
  static bool hasStarted();

  const JXClock& clock() const { return *clock_; }
  JXPlatform& platform() const { return *platform_; }
  /// The store of persisted values: the platform's own, else the core's. Null when neither can be
  /// had.
  JXPlatformDefaults* userDefaults() const { return userDefaults_; }
  /// A persisted value was changed: where the core keeps them itself, the transfer thread is told
  /// to make it durable.
  void userDefaultsChanged();
  /// "https://host" that events go to, without a path.
  const JXString& collectionEndpoint() const { return collectionEndpoint_; }

  /// Starts the watch over the application's state and, unless this is a dry run, the transfer
  /// thread. A second call changes nothing.
  void start();

 private:
  explicit JXCoreServices(const JXCoreConfiguration& configuration);
  void startTransfer();

  JXCoreConfiguration configuration_;
  std::shared_ptr<const JXClock> clock_;
  std::shared_ptr<JXPlatform> platform_;
  JXString storageFolder_;
  JXString collectionEndpoint_;
  std::unique_ptr<JXDefaultsFile> defaultsFile_;
  JXPlatformDefaults* userDefaults_ = nullptr;
  std::atomic<bool> maintenanceIsDue_{false};
  std::once_flag started_;
};

}  // namespace jx
