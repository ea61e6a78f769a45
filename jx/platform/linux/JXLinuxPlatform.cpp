// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLinuxPlatform.h"

#include <unistd.h>

#include <utility>

#include "jx/platform/JXUserAgentString.h"
#include "jx/platform/linux/JXDefaultEncoding.h"
#include "jx/platform/linux/JXLanguageTags.h"
#include "jx/platform/linux/JXLocaleMoney.h"
#include "jx/platform/linux/JXNetworkKind.h"
#include "jx/platform/linux/JXRandom.h"
#include "jx/platform/linux/JXScreenSize.h"
#include "jx/platform/linux/JXStorageFolder.h"
#include "jx/platform/linux/JXTimeZoneName.h"

namespace jx {
namespace {

// Every event contains the type of network, and reading it takes a dozen system calls.
constexpr std::chrono::seconds kMaxNetworkKindAge{1};

}  // namespace

JXLinuxSystem JXLinuxSystem::current() {
  return {copyProcessEnvironment(), "",
          findInstalledLocale,      readKernelNames,
          readNetworkInterfaces,    [] { return std::chrono::steady_clock::now(); }};
}

JXLinuxPlatform::JXLinuxPlatform(JXHostOverrides overrides, JXLinuxSystem system)
    : overrides_(std::move(overrides)), system_(std::move(system)) {}

JXPlatformDefaults* JXLinuxPlatform::userDefaults() { return nullptr; }

JXString JXLinuxPlatform::defaultStorageFolder() {
  return storageFolder(system_.environment, overrides_.bundle.identifier);
}

std::vector<JXString> JXLinuxPlatform::preferredLanguages() {
  return preferredLanguageTags(system_.environment);
}

JXString JXLinuxPlatform::currencyCode() {
  return localeMoney(system_.environment, system_.installedLocale).code;
}

JXString JXLinuxPlatform::currencySymbol() {
  return localeMoney(system_.environment, system_.installedLocale).symbol;
}

std::uint32_t JXLinuxPlatform::defaultEncoding() {
  return defaultEncodingNumber(system_.environment, system_.installedLocale);
}

JXString JXLinuxPlatform::timeZoneName() {
  return localTimeZoneName(system_.environment, system_.root);
}

JXBundleInformation JXLinuxPlatform::bundleInformation() { return overrides_.bundle; }

JXString JXLinuxPlatform::deviceModel() { return systemInfo().model; }

JXString JXLinuxPlatform::systemName() { return systemInfo().release.name; }

JXString JXLinuxPlatform::systemVersion() { return systemInfo().release.version; }

JXString JXLinuxPlatform::machineName() { return systemInfo().kernel.machine; }

JXScreenBounds JXLinuxPlatform::screenBounds() {
  return screenSize(overrides_.screen, system_.root);
}

bool JXLinuxPlatform::isAdvertisingTrackingAllowed() { return false; }

JXString JXLinuxPlatform::advertisingIdentifier() { return nullptr; }

JXString JXLinuxPlatform::vendorIdentifier() { return nullptr; }

bool JXLinuxPlatform::isDeviceModified() { return false; }

JXNetworkKind JXLinuxPlatform::networkKind() {
  const std::lock_guard<std::mutex> lock(networkMutex_);
  const auto now = system_.steadyNow();
  if (!networkReadAt_ || now - *networkReadAt_ >= kMaxNetworkKindAge) {
    networkKind_ = kindOfNetwork(system_.networkReading().interfaces, system_.root);
    networkReadAt_ = now;
  }
  return networkKind_;
}

std::vector<JXInterfaceAddress> JXLinuxPlatform::interfaceAddresses() {
  return system_.networkReading().addresses;
}

void JXLinuxPlatform::requestUserAgent(std::function<void(const JXString&)> completion) {
  if (!completion) return;
  if (overrides_.userAgent.testString()) return completion(overrides_.userAgent);
  const SystemInfo& known = systemInfo();
  completion(userAgentString(known.release.name, known.release.version, known.kernel.machine));
}

void JXLinuxPlatform::observeApplication(ApplicationCallback, ApplicationCallback) {}

JXString JXLinuxPlatform::newUUID() { return makeRandomUUID(); }

std::uint32_t JXLinuxPlatform::randomBits() { return drawRandomBits(); }

std::int32_t JXLinuxPlatform::processIdentifier() { return ::getpid(); }

const JXLinuxPlatform::SystemInfo& JXLinuxPlatform::systemInfo() {
  std::call_once(systemInfoRead_, [this] {
    systemInfo_.kernel = system_.kernelNames();
    systemInfo_.release = readOsRelease(system_.root, systemInfo_.kernel);
    systemInfo_.model = readDeviceModel(system_.root);
  });
  return systemInfo_;
}

std::shared_ptr<JXPlatform> makeSystemPlatform(const JXBundleInformation& bundle,
                                               const JXScreenBounds& screen,
                                               const JXString& userAgent) {
  return std::make_shared<JXLinuxPlatform>(JXHostOverrides{bundle, screen, userAgent},
                                           JXLinuxSystem::current());
}

}  // namespace jx
