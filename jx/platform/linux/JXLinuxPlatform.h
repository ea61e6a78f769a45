// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "jx/platform/JXHostOverrides.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/linux/JXEnvironment.h"
#include "jx/platform/linux/JXInstalledLocale.h"
#include "jx/platform/linux/JXOsRelease.h"
#include "jx/platform/posix/JXNetworkInterfaces.h"

namespace jx {

/// What the Linux platform asks for its answers; tests give folders and lists of their own.
/// `current()` is the system itself. The functions may be called on any thread.
struct JXLinuxSystem {
  JXEnvironment environment;
  std::string root;  ///< stands before /etc, /sys and /proc
  JXInstalledLocaleLookup installedLocale;
  std::function<JXKernelNames()> kernelNames;
  std::function<JXNetworkReading()> networkReading;
  std::function<std::chrono::steady_clock::time_point()> steadyNow;

  static JXLinuxSystem current();
};

/// The platform of a Linux system. Environment variables are those of the moment at which it was
/// made. Facts that do not change while a system runs are read at their first use and kept; the
/// kind of network is read again after a second. All operations may be called on any thread.
class JXLinuxPlatform final : public JXPlatform {
 public:
  JXLinuxPlatform(JXHostOverrides host, JXLinuxSystem system);

  /// Null: Linux has no store of settings that belongs to an application.
  JXPlatformDefaults* userDefaults() override;
  JXString defaultStorageFolder() override;

  std::vector<JXString> preferredLanguages() override;
  JXString currencyCode() override;
  JXString currencySymbol() override;
  std::uint32_t defaultEncoding() override;
  JXString timeZoneName() override;

  /// What the host stated, unchanged.
  JXBundleInformation bundleInformation() override;

  JXString deviceModel() override;
  JXString systemName() override;
  JXString systemVersion() override;
  JXString machineName() override;
  JXScreenBounds screenBounds() override;

  /// False: Linux has no advertising identifier, and nobody whom a viewer could have allowed it.
  bool isAdvertisingTrackingAllowed() override;
  JXString advertisingIdentifier() override;
  /// Absent. The machine's own identifier (/etc/machine-id) is the same for every application and
  /// for good, so it stays private.
  JXString vendorIdentifier() override;
  /// False. A Linux system belongs to its owner, who may change any of it and who builds it from
  /// parts of any origin; there is no state that a program could compare with, and a guess would
  /// call sound devices modified.
  bool isDeviceModified() override;

  JXNetworkKind networkKind() override;
  std::vector<JXInterfaceAddress> interfaceAddresses() override;

  /// Answers at once, on the calling thread: what the host stated, else a product made of the
  /// system's name and version, such as "Debian-GNU-Linux/12 (x86_64)".
  void requestUserAgent(std::function<void(const JXString&)> answer) override;

  /// Ignored: the host calls JXApplication itself.
  void observeApplication(std::function<void()> didEnterBackground,
                          std::function<void()> willEnterForeground) override;

  JXString newUUID() override;
  std::uint32_t randomBits() override;
  std::int32_t processIdentifier() override;

 private:
  struct Facts {
    JXKernelNames kernel;
    JXOsRelease release;
    JXString model;
  };

  const Facts& facts();

  const JXHostOverrides host_;
  const JXLinuxSystem system_;

  std::once_flag factsRead_;
  Facts facts_;

  std::mutex networkMutex_;
  std::optional<std::chrono::steady_clock::time_point> networkReadAt_;
  JXNetworkKind networkKind_ = JXNetworkKind::None;
};

}  // namespace jx
