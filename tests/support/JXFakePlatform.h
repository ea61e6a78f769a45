// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "jx/platform/JXPlatform.h"

namespace jx::test {

/// An in-memory settings store. Thread-safe.
class JXFakePlatformDefaults final : public JXPlatformDefaults {
 public:
  JXString objectForKey(const JXString& key) override;
  void setObject_forKey(const JXString& value, const JXString& key) override;
  void synchronize() override;

  /// Adds an entry without counting it, as if an earlier launch had stored it.
  void preset(const std::string& key, const JXString& value);
  /// Returns a copy of all entries.
  std::map<std::string, JXString> entries() const;

  /// Returns the number of `setObject_forKey` calls, removals included.
  int setCount() const { return setCount_.load(); }
  int setCount(const std::string& key) const;
  int synchronizeCount() const { return synchronizeCount_.load(); }

 private:
  void store(const std::string& key, const JXString& value);

  mutable std::mutex mutex_;
  std::map<std::string, JXString> entries_;
  std::map<std::string, int> setCounts_;
  std::atomic<int> setCount_{0};
  std::atomic<int> synchronizeCount_{0};
};

/// The platform for tests: every result is a public value; the defaults describe a TV in London.
/// Set the values before the library is started. Atomic values, the user agent and the application
/// state may be used at any time on any thread.
class JXFakePlatform final : public JXPlatform {
 public:
  /// `userDefaults()` returns `defaults` while this is true, else null.
  bool hasUserDefaults = true;
  JXFakePlatformDefaults defaults;
  JXString storageFolder;

  std::vector<JXString> languages{"en-GB"};
  JXString currency{"GBP"};
  JXString symbol{"£"};
  std::uint32_t encoding = 4;
  JXString timeZone{"Europe/London"};

  JXBundleInformation bundle{"com.example.tv", "Example TV", "100", "1.0"};

  JXString model{"Example Television"};
  JXString osName{"ExampleOS"};
  JXString osVersion{"17.4"};
  JXString machine{"ExampleTV6,2"};
  JXScreenBounds screen{1920, 1080};

  bool trackingAllowed = false;
  JXString advertisingId{"11111111-2222-4333-8444-555555555555"};
  JXString vendorId{"66666666-7777-4888-8999-AAAAAAAAAAAA"};
  bool deviceModified = false;

  std::atomic<JXNetworkKind> network{JXNetworkKind::Ethernet};
  std::vector<JXInterfaceAddress> addresses;

  JXString userAgent{"ExampleAgent/1.0"};
  /// True makes a user agent request wait for `answerUserAgent`.
  bool userAgentAnswersLater = false;

  std::int32_t process = 4242;
  /// First result of `randomBits`; each further call returns one more.
  std::atomic<std::uint32_t> nextRandomBits{1};

  /// Completes all pending user agent requests on the calling thread. Returns their number.
  int answerUserAgent(const JXString& text);
  int userAgentRequestCount() const { return userAgentRequests_.load(); }

  /// The application object that the system passes to the observers.
  const void* application = nullptr;
  /// Notifies the observers on the calling thread. Returns false when there is none.
  bool enterBackground();
  bool enterForeground();
  int observeCount() const { return observeCount_.load(); }

  /// Number of UUIDs created; the n-th is "00000000-0000-4000-8000-" plus n in twelve hex digits.
  int uuidCount() const { return uuidCount_.load(); }

  JXPlatformDefaults* userDefaults() override { return hasUserDefaults ? &defaults : nullptr; }
  JXString defaultStorageFolder() override { return storageFolder; }
  std::vector<JXString> preferredLanguages() override { return languages; }
  JXString currencyCode() override { return currency; }
  JXString currencySymbol() override { return symbol; }
  std::uint32_t defaultEncoding() override { return encoding; }
  JXString timeZoneName() override { return timeZone; }
  JXBundleInformation bundleInformation() override { return bundle; }
  JXString deviceModel() override { return model; }
  JXString systemName() override { return osName; }
  JXString systemVersion() override { return osVersion; }
  JXString machineName() override { return machine; }
  JXScreenBounds screenBounds() override { return screen; }
  bool isAdvertisingTrackingAllowed() override { return trackingAllowed; }
  JXString advertisingIdentifier() override { return advertisingId; }
  JXString vendorIdentifier() override { return vendorId; }
  bool isDeviceModified() override { return deviceModified; }
  JXNetworkKind networkKind() override { return network.load(); }
  std::vector<JXInterfaceAddress> interfaceAddresses() override { return addresses; }
  void requestUserAgent(std::function<void(const JXString&)> answer) override;
  void observeApplication(ApplicationCallback didEnterBackground,
                          ApplicationCallback willEnterForeground) override;
  JXString newUUID() override;
  std::uint32_t randomBits() override { return nextRandomBits.fetch_add(1); }
  std::int32_t processIdentifier() override { return process; }

 private:
  std::mutex mutex_;
  std::vector<std::function<void(const JXString&)>> waiting_;
  ApplicationCallback didEnterBackground_;
  ApplicationCallback willEnterForeground_;
  std::atomic<int> userAgentRequests_{0};
  std::atomic<int> observeCount_{0};
  std::atomic<int> uuidCount_{0};
};

}  // namespace jx::test
