// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>

#include "jx/core/JXDynamicStore.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The core's clock and its run-time variables. Thread-safe; never destroyed.
class JX_API JXCoreVariables {
 public:
  /// The one object of this process.
  static JXCoreVariables& sharedInstance();

  /// The text under the key, absent when there is none.
  JXString getData(const JXString& key) const;
  /// Stores a text; an absent one removes the key.
  void addData_withValue(const JXString& key, const JXString& value);
  /// The store that the two operations above work on.
  const std::shared_ptr<JXDynamicStore>& dynamicStore() const { return dynamicStore_; }

  /// Milliseconds since the Unix epoch, by the configured clock.
  std::int64_t nowMs() const;
  /// The same instant as a date, in whole milliseconds.
  std::chrono::system_clock::time_point now() const;
  /// Decimal milliseconds since the Unix epoch.
  JXString nowMsString() const;
  /// Decimal seconds since the Unix epoch, rounded down.
  JXString nowString() const;

  /// True lets the core send while the application is in the background. Kept as a mark; the
  /// network manager has the switch.
  void setEnableSDKInBG(bool enabled) { enableSDKInBG_ = enabled; }
  /// The mark that was set last; false at first.
  bool enableSDKInBG() const { return enableSDKInBG_; }
  /// Reads the platform's vendor identifier and stores it under `kJXPredefinedVariable_IDFV`.
  void setIDFV();

 private:
  JXCoreVariables();

  std::shared_ptr<JXDynamicStore> dynamicStore_;
  std::atomic<bool> enableSDKInBG_{false};
};

}  // namespace jx
