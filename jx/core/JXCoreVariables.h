// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>

#include "jx/core/JXDynamicStore.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The core's clock and its run-time variables. Thread-safe; never destroyed.
class JX_API JXCoreVariables {
 public:
  /// Returns the object of this process.
  static JXCoreVariables& sharedInstance();

  /// Returns the string stored under `key`; null when there is none.
  JXString getData(const JXString& key) const;
  /// Stores a string, replacing any value with the same key; null removes the key.
  void addData_withValue(const JXString& key, const JXString& value);
  /// Returns the store that `getData` and `addData_withValue` use.
  const std::shared_ptr<JXDynamicStore>& dynamicStore() const {
    renewIdentifiers();
    return dynamicStore_;
  }

  /// Returns the milliseconds since the Unix epoch, from the configured clock.
  std::int64_t nowMs() const;
  /// Returns the current time as a time point, in whole milliseconds.
  std::chrono::system_clock::time_point now() const;
  /// Returns the milliseconds since the Unix epoch as a decimal string.
  JXString nowMsString() const;
  /// Returns the seconds since the Unix epoch, rounded down, as a decimal string.
  JXString nowString() const;

  /// Sets whether the core may send while the application is in the background, as
  /// `JXNetworkManager::setRunningInBackground` does. False pauses delivery at once if the
  /// application is in the background.
  void setEnableSDKInBG(bool enabled);
  /// Returns the value set last; initially false.
  bool enableSDKInBG() const { return enableSDKInBG_; }
  /// Reads the platform's vendor identifier and stores it under `kJXPredefinedVariable_IDFV`.
  void setIDFV();

 private:
  JXCoreVariables();
  void renewIdentifiers() const;

  std::shared_ptr<JXDynamicStore> dynamicStore_;
  std::atomic<bool> enableSDKInBG_{false};
  mutable std::mutex renewal_;
  mutable std::atomic<std::uint64_t> seenBeginnings_{0};  ///< when the identifiers were read
};

}  // namespace jx
