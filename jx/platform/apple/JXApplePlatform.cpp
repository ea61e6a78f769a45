// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXApplePlatform.h"

#include <unistd.h>

#include <chrono>
#include <utility>

#include "jx/platform/JXRunTimeClasses.h"
#include "jx/platform/JXUserAgentString.h"
#include "jx/platform/apple/JXFoundationLocale.h"
#include "jx/platform/apple/JXHardware.h"
#include "jx/platform/apple/JXIntegrityProbe.h"
#include "jx/platform/apple/JXMainBundle.h"
#include "jx/platform/apple/JXNetworkKind.h"
#include "jx/platform/apple/JXRandom.h"
#include "jx/platform/apple/JXStorageFolder.h"

namespace jx {
namespace {

// The first network update of the system arrives within a few milliseconds.
constexpr std::chrono::milliseconds kMaxWaitForNetworkPath{50};

}  // namespace

JXAppleSystem JXAppleSystem::current() { return {"", loadedClass, readNetworkInterfaces}; }

JXApplePlatform::JXApplePlatform(JXHostOverrides overrides, JXAppleSystem system)
    : overrides_(std::move(overrides)), system_(std::move(system)) {
  JXRunTimeClasses::setLookup([](const char* name) { return loadedClass(name) != nullptr; });
}

JXPlatformDefaults* JXApplePlatform::userDefaults() { return &defaults_; }

JXString JXApplePlatform::defaultStorageFolder() { return cachesStorageFolder(); }

std::vector<JXString> JXApplePlatform::preferredLanguages() { return foundationLanguages(); }

JXString JXApplePlatform::currencyCode() { return foundationCurrencyCode(); }

JXString JXApplePlatform::currencySymbol() { return foundationCurrencySymbol(); }

std::uint32_t JXApplePlatform::defaultEncoding() { return foundationEncoding(); }

JXString JXApplePlatform::timeZoneName() { return foundationTimeZoneName(); }

JXBundleInformation JXApplePlatform::bundleInformation() {
  return completedByMainBundle(overrides_.bundle);
}

JXString JXApplePlatform::deviceModel() { return deviceModelName(); }

JXString JXApplePlatform::systemName() { return deviceSystemName(); }

JXString JXApplePlatform::systemVersion() { return deviceSystemVersion(); }

JXString JXApplePlatform::machineName() { return deviceMachineName(); }

JXScreenBounds JXApplePlatform::screenBounds() {
  const bool isOverridden = overrides_.screen.width > 0 && overrides_.screen.height > 0;
  return isOverridden ? overrides_.screen : mainScreenBounds();
}

bool JXApplePlatform::isAdvertisingTrackingAllowed() {
  return isTrackingAllowed(deviceSystemVersion(), system_.classNamed);
}

JXString JXApplePlatform::advertisingIdentifier() {
  return advertisingIdentifierString(system_.classNamed);
}

JXString JXApplePlatform::vendorIdentifier() { return deviceVendorIdentifier(); }

bool JXApplePlatform::isDeviceModified() { return isSystemModified(system_.root); }

JXNetworkKind JXApplePlatform::networkKind() {
  if (const auto kind = networkPath_.kind(kMaxWaitForNetworkPath)) return *kind;
  return guessNetworkKind(system_.networkReading().interfaces);
}

std::vector<JXInterfaceAddress> JXApplePlatform::interfaceAddresses() {
  return system_.networkReading().addresses;
}

void JXApplePlatform::requestUserAgent(std::function<void(const JXString&)> completion) {
  if (!completion) return;
  if (overrides_.userAgent.testString()) return completion(overrides_.userAgent);
  completion(userAgentString(deviceSystemName(), deviceSystemVersion(), deviceMachineName()));
}

void JXApplePlatform::observeApplication(ApplicationCallback didEnterBackground,
                                         ApplicationCallback willEnterForeground) {
  const std::lock_guard<std::mutex> lock(observerMutex_);
  if (observer_) return;
  observer_ = std::make_unique<JXApplicationObserver>(std::move(didEnterBackground),
                                                      std::move(willEnterForeground));
}

JXString JXApplePlatform::newUUID() { return makeFoundationUUID(); }

std::uint32_t JXApplePlatform::randomBits() { return drawSystemRandomBits(); }

std::int32_t JXApplePlatform::processIdentifier() { return ::getpid(); }

std::shared_ptr<JXPlatform> makeSystemPlatform(const JXBundleInformation& bundle,
                                               const JXScreenBounds& screen,
                                               const JXString& userAgent) {
  return std::make_shared<JXApplePlatform>(JXHostOverrides{bundle, screen, userAgent},
                                           JXAppleSystem::current());
}

}  // namespace jx
