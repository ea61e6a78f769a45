// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "jx/platform/JXHostOverrides.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/apple/JXAdvertising.h"
#include "jx/platform/apple/JXApplicationObserver.h"
#include "jx/platform/apple/JXFoundationDefaults.h"
#include "jx/platform/apple/JXNetworkPath.h"
#include "jx/platform/posix/JXNetworkInterfaces.h"

namespace jx {

/// Dependencies of the platform other than the linked frameworks; tests replace them. `current()`
/// returns those of the system. The functions may be called on any thread.
struct JXAppleSystem {
  std::string root;  ///< prefix of the paths of the integrity probe
  JXClassLookup classNamed;
  std::function<JXNetworkReading()> networkReading;

  static JXAppleSystem current();
};

/// The platform of tvOS 12 and later, on Foundation, UIKit and Network; AdSupport and
/// AppTrackingTransparency are used if they are loaded. Values of the application override those of
/// the system. Operations may be called on any thread, except those that use UIKit (model, system,
/// screen, vendor identifier, tracking permission): call them on the main thread, on which the
/// first ServerSide is created.
class JXApplePlatform final : public JXPlatform {
 public:
  JXApplePlatform(JXHostOverrides overrides, JXAppleSystem system);

  /// Returns the application's standard user defaults.
  JXPlatformDefaults* userDefaults() override;
  JXString defaultStorageFolder() override;

  std::vector<JXString> preferredLanguages() override;
  JXString currencyCode() override;
  JXString currencySymbol() override;
  std::uint32_t defaultEncoding() override;
  JXString timeZoneName() override;

  /// Returns the values that the application set, completed by the main bundle.
  JXBundleInformation bundleInformation() override;

  JXString deviceModel() override;
  JXString systemName() override;
  JXString systemVersion() override;
  JXString machineName() override;
  /// Returns the size that the application set if width and height are positive, else the size of
  /// the main screen.
  JXScreenBounds screenBounds() override;

  bool isAdvertisingTrackingAllowed() override;
  JXString advertisingIdentifier() override;
  JXString vendorIdentifier() override;
  bool isDeviceModified() override;

  /// Returns the type that the system reports; before its first update a guess from the interface
  /// names. The first call waits for the update, for at most 50 ms.
  JXNetworkKind networkKind() override;
  std::vector<JXInterfaceAddress> interfaceAddresses() override;

  /// Calls `completion` on the calling thread before this returns, with the user agent that the
  /// application set, else with a product that consists of the system's name and version, such as
  /// "tvOS/12.4 (AppleTV6-2)". tvOS has no web view that provides one.
  void requestUserAgent(std::function<void(const JXString&)> completion) override;

  void observeApplication(ApplicationCallback didEnterBackground,
                          ApplicationCallback willEnterForeground) override;

  JXString newUUID() override;
  std::uint32_t randomBits() override;
  std::int32_t processIdentifier() override;

 private:
  const JXHostOverrides overrides_;
  const JXAppleSystem system_;
  JXFoundationDefaults defaults_;
  JXNetworkPath networkPath_;
  std::mutex observerMutex_;
  std::unique_ptr<JXApplicationObserver> observer_;
};

}  // namespace jx
