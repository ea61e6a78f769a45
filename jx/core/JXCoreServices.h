// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "jx/core/JXCoreConfiguration.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXPlatform.h"

namespace jx {

class JXDefaultsFile;
class JXErasures;
class JXOutbox;
class JXPathWatch;
class JXStopMarks;

/// Names the public operation that is running on this thread, for the message of a configuration
/// that is set after the operation started the core. Calls inside another named operation keep its
/// name.
class JXCoreCaller {
 public:
  /// `operation` is a string literal, for example "JXUser::anonymous_id()".
  explicit JXCoreCaller(const char* operation) noexcept;
  ~JXCoreCaller();
  JXCoreCaller(const JXCoreCaller&) = delete;
  JXCoreCaller& operator=(const JXCoreCaller&) = delete;

 private:
  const bool isOutermost_;
};

/// The services that the core depends on, created from the configuration on first use of the core.
/// Thread-safe; never destroyed.
class JXCoreServices {
 public:
  static JXCoreServices& sharedInstance();
  /// Returns whether the configuration has been read; it can no longer be changed then.
  static bool hasStarted() { return startedBy() != nullptr; }
  /// Returns the operation that started the core; null before the start.
  static const char* startedBy();

  const JXClock& clock() const { return *clock_; }
  JXPlatform& platform() const { return *platform_; }
  /// Returns the store of persisted values: the platform's, otherwise the core's. Null when neither
  /// is available.
  JXPlatformDefaults* userDefaults() const { return userDefaults_; }
  /// Returns whether data may be stored and identifiers be created; see
  /// JXCoreConfiguration::storesOnlyWithConsent.
  bool mayStore() const { return mayStore_; }
  /// Returns whether data may be stored since a consent, and not since the start.
  bool beganLater() const { return beganLater_; }
  /// Returns a new random identifier; null if none may be created yet.
  JXString newIdentifier() const { return mayStore() ? platform_->newUUID() : JXString(); }
  /// Returns how often the identifiers and counts were invalidated: by each erase, and once when
  /// data may be stored. The classes that cache them compare it with the number at which they read
  /// or created them.
  std::uint64_t beginnings() const;
  /// Reports that a persisted value changed. When the core's own store is used, the transfer thread
  /// then makes it durable.
  void userDefaultsChanged();
  /// Returns the URL that events are sent to, "https://host" without a path.
  const JXString& collectionEndpoint() const { return collectionEndpoint_; }

  /// Notices when the stored data is erased.
  JXErasures& erasures() const { return *erasures_; }
  /// Erases the stored data, and the queue and the persisted values in memory. Returns one line for
  /// each file or value that could not be erased. If the core has not started, erases the folder
  /// and the settings that it would use, and does not start it.
  static std::vector<std::string> eraseStoredData();

  /// Starts observing the application state and, except in a dry run, the transfer thread. A second
  /// call has no effect.
  void start();

 private:
  explicit JXCoreServices(const JXCoreConfiguration& configuration);
  void startTransfer();
  void openOutbox();
  void openDefaults();
  void beginStoring();
  void removeExpiredQuarantinedDefaults();
  std::vector<std::string> erase();
  /// Returns the operation that requests, stores and announces the user agent; see JXTransferSetup.
  std::function<void(std::function<void()>)> userAgentRequest();

  JXCoreConfiguration configuration_;
  std::shared_ptr<const JXClock> clock_;
  std::shared_ptr<JXPlatform> platform_;
  JXString storageFolder_;
  JXString collectionEndpoint_;
  std::shared_ptr<JXErasures> erasures_;
  std::shared_ptr<JXPathWatch> watch_;      ///< null without a storage folder
  std::shared_ptr<JXOutbox> outbox_;        ///< null in a dry run
  std::shared_ptr<JXStopMarks> stopMarks_;  ///< null before the start and in a dry run
  // Never deleted. Null until data may be stored.
  std::atomic<JXDefaultsFile*> defaultsFile_{nullptr};
  std::atomic<JXPlatformDefaults*> userDefaults_{nullptr};
  std::atomic<bool> mayStore_{false};
  std::atomic<bool> beganLater_{false};  ///< data may be stored since a consent, not the start
  std::once_flag storing_;
  std::atomic<bool> maintenanceIsDue_{false};
  bool quarantineIsChecked_ = false;  ///< used on the transfer thread only
  std::once_flag started_;
};

}  // namespace jx
