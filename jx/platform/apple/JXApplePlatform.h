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

/// What the platform asks besides the frameworks that it links; tests give their own. `current()`
/// is the system itself. The functions may be called on any thread.
struct JXAppleSystem {
  std::string root;  ///< stands before the paths of the integrity probe
  JXClassLookup classNamed;
  std::function<JXNetworkReading()> networkReading;

  static JXAppleSystem current();
};

/// The platform of tvOS 12 and later, on Foundation, UIKit and Network; AdSupport and
/// AppTrackingTransparency are used where they are loaded. What the host states counts before what
/// the system says. Operations may be called on any thread, but those that ask UIKit (model,
/// system, screen, vendor identifier) belong on the main thread, where the first ServerSide is
/// made.
class JXApplePlatform final : public JXPlatform {
 public:
  JXApplePlatform(JXHostOverrides host, JXAppleSystem system);

  /// The application's standard user defaults.
  JXPlatformDefaults* userDefaults() override;
  JXString defaultStorageFolder() override;

  std::vector<JXString> preferredLanguages() override;
  JXString currencyCode() override;
  JXString currencySymbol() override;
  std::uint32_t defaultEncoding() override;
  JXString timeZoneName() override;

  /// What the host stated, completed by the main bundle.
  JXBundleInformation bundleInformation() override;

  JXString deviceModel() override;
  JXString systemName() override;
  JXString systemVersion() override;
  JXString machineName() override;
  /// What the host stated when that has a width and a height, else the main screen's.
  JXScreenBounds screenBounds() override;

  bool isAdvertisingTrackingAllowed() override;
  JXString advertisingIdentifier() override;
  JXString vendorIdentifier() override;
  bool isDeviceModified() override;

  /// The system's word; until its first, which the first call waits for at most 50 ms, a guess.
  JXNetworkKind networkKind() override;
  std::vector<JXInterfaceAddress> interfaceAddresses() override;

  /// Answers at once, on the calling thread: what the host stated, else a product made of the
  /// system's name and version, such as "tvOS/12.4 (AppleTV6-2)". tvOS has no web view to ask.
  void requestUserAgent(std::function<void(const JXString&)> answer) override;

  void observeApplication(std::function<void()> didEnterBackground,
                          std::function<void()> willEnterForeground) override;

  JXString newUUID() override;
  std::uint32_t randomBits() override;
  std::int32_t processIdentifier() override;

 private:
  const JXHostOverrides host_;
  const JXAppleSystem system_;
  JXFoundationDefaults defaults_;
  JXNetworkPath networkPath_;
  std::mutex observerMutex_;
  std::unique_ptr<JXApplicationObserver> observer_;
};

}  // namespace jx
