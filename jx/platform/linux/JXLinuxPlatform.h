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

/// Data sources of the Linux platform; tests replace them. `current()` returns those of the system.
/// The functions may be called on any thread.
struct JXLinuxSystem {
  JXEnvironment environment;
  std::string root;  ///< prefix of /etc, /sys and /proc
  JXInstalledLocaleLookup installedLocale;
  std::function<JXKernelNames()> kernelNames;
  std::function<JXNetworkReading()> networkReading;
  std::function<std::chrono::steady_clock::time_point()> steadyNow;

  static JXLinuxSystem current();
};

/// The platform of a Linux system. Environment variables are copied when it is created. Values that
/// do not change while a system runs are read on first use and cached; the type of network is
/// cached for one second. All operations may be called on any thread.
class JXLinuxPlatform final : public JXPlatform {
 public:
  JXLinuxPlatform(JXHostOverrides overrides, JXLinuxSystem system);

  /// Returns null: Linux has no settings store per application.
  JXPlatformDefaults* userDefaults() override;
  JXString defaultStorageFolder() override;

  std::vector<JXString> preferredLanguages() override;
  JXString currencyCode() override;
  JXString currencySymbol() override;
  std::uint32_t defaultEncoding() override;
  JXString timeZoneName() override;

  /// Returns the values that the application set, unchanged.
  JXBundleInformation bundleInformation() override;

  JXString deviceModel() override;
  JXString systemName() override;
  JXString systemVersion() override;
  JXString machineName() override;
  JXScreenBounds screenBounds() override;

  /// Returns false: Linux has neither an advertising identifier nor a permission for it.
  bool isAdvertisingTrackingAllowed() override;
  JXString advertisingIdentifier() override;
  /// Returns null. The machine ID (/etc/machine-id) is permanent and the same for every
  /// application, so it is not used.
  JXString vendorIdentifier() override;
  /// Returns false. The owner of a Linux system may change any part of it and may build it from any
  /// source. There is no reference state to compare with, and a guess would report unmodified
  /// devices as modified.
  bool isDeviceModified() override;

  JXNetworkKind networkKind() override;
  std::vector<JXInterfaceAddress> interfaceAddresses() override;

  /// Calls `completion` on the calling thread before this returns, with the user agent that the
  /// application set, else with a product that consists of the system's name and version, such as
  /// "Debian-GNU-Linux/12 (x86_64)".
  void requestUserAgent(std::function<void(const JXString&)> completion) override;

  /// Does nothing: the application calls JXApplication itself.
  void observeApplication(ApplicationCallback didEnterBackground,
                          ApplicationCallback willEnterForeground) override;

  JXString newUUID() override;
  std::uint32_t randomBits() override;
  std::int32_t processIdentifier() override;

 private:
  struct SystemInfo {
    JXKernelNames kernel;
    JXOsRelease release;
    JXString model;
  };

  const SystemInfo& systemInfo();

  const JXHostOverrides overrides_;
  const JXLinuxSystem system_;

  std::once_flag systemInfoRead_;
  SystemInfo systemInfo_;

  std::mutex networkMutex_;
  std::optional<std::chrono::steady_clock::time_point> networkReadAt_;
  JXNetworkKind networkKind_ = JXNetworkKind::None;
};

}  // namespace jx
