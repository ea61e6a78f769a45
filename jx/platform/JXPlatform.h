// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// What the application states about itself; on a system with bundles the bundle states it.
struct JX_API JXBundleInformation {
  JXString identifier;    ///< for example "com.example.tv"
  JXString name;          ///< the name that a viewer sees
  JXString version;       ///< build number ("CFBundleVersion")
  JXString shortVersion;  ///< version that a viewer sees ("CFBundleShortVersionString")
};

/// Size of the main screen in points; 0 by 0 when there is no display.
struct JX_API JXScreenBounds {
  double width = 0;   ///< points
  double height = 0;  ///< points
};

/// Kind of the network connection that is in use now.
enum class JXNetworkKind { None, Ethernet, Wifi, Cellular };

/// One entry of the system's list of network interfaces.
struct JX_API JXInterfaceAddress {
  /// The kind of address.
  enum class Family { IPv4, IPv6, Other };
  /// The interface's name, such as "en0".
  JXString name;
  /// The kind of the address.
  Family family = Family::Other;
  /// The four bytes that follow family and port in the address: the address itself for IPv4, the
  /// flow information for IPv6. In network byte order, as the system holds them.
  std::uint8_t word[4] = {0, 0, 0, 0};
};

/// The system's store of an application's settings, for systems that have one.
/// Text values only. Calls may come from any thread.
class JX_API JXPlatformDefaults {
 public:
  virtual ~JXPlatformDefaults() = default;
  /// The value, absent when there is none.
  virtual JXString objectForKey(const JXString& key) = 0;
  /// Stores `value`; an absent value removes the entry.
  virtual void setObject_forKey(const JXString& value, const JXString& key) = 0;
  /// Makes what was set durable.
  virtual void synchronize() = 0;

  /// What this thread sets from here to `endChanges` may be stored in one go then; it is readable
  /// at once all the same. The calls come in pairs and are not nested.
  virtual void beginChanges() {}
  /// Stores what `beginChanges` held back.
  virtual void endChanges() {}
};

/// The one interface to the operating system. An absent string says that the system does not know.
/// The library calls it from the threads on which the host calls the library and, for
/// `networkKind`, from the transfer thread; no operation may block for long or throw.
class JX_API JXPlatform {
 public:
  virtual ~JXPlatform() = default;

  /// The system's settings store, owned by the platform; null where there is none, and the library
  /// then keeps the values in its own storage folder.
  virtual JXPlatformDefaults* userDefaults() = 0;
  /// A folder in which the library may keep its files, for hosts that state none; absent when the
  /// system offers none.
  virtual JXString defaultStorageFolder() = 0;

  /// Language tags, most preferred first, such as "fr-CA"; empty when none is known.
  virtual std::vector<JXString> preferredLanguages() = 0;
  /// ISO 4217 code of the locale's currency.
  virtual JXString currencyCode() = 0;
  /// The symbol of the locale's currency.
  virtual JXString currencySymbol() = 0;
  /// Number of the default byte-string encoding in the list that JXPredefinedVariables names
  /// (4 is UTF-8); 0 when unknown.
  virtual std::uint32_t defaultEncoding() = 0;
  /// IANA name such as "Asia/Tokyo".
  virtual JXString timeZoneName() = 0;

  /// What the application says about itself; absent texts where it says nothing.
  virtual JXBundleInformation bundleInformation() = 0;

  /// Marketing model of the device.
  virtual JXString deviceModel() = 0;
  /// The name of the operating system.
  virtual JXString systemName() = 0;
  /// The version of the operating system.
  virtual JXString systemVersion() = 0;
  /// Hardware machine identifier, as `uname` gives it.
  virtual JXString machineName() = 0;
  /// The size of the main screen in points.
  virtual JXScreenBounds screenBounds() = 0;

  /// True when the viewer allows advertising tracking.
  virtual bool isAdvertisingTrackingAllowed() = 0;
  /// The advertising identifier, a UUID; absent when there is none. Asked only where tracking is
  /// allowed.
  virtual JXString advertisingIdentifier() = 0;
  /// The identifier that the applications of one maker share on this device.
  virtual JXString vendorIdentifier() = 0;
  /// True when the integrity probe finds the device modified.
  virtual bool isDeviceModified() = 0;

  /// The kind of the connection in use now.
  virtual JXNetworkKind networkKind() = 0;
  /// The addresses of all network interfaces; empty when the system tells none.
  virtual std::vector<JXInterfaceAddress> interfaceAddresses() = 0;

  /// Asks for the user agent; `answer` is called once, on any thread, now or later, with an absent
  /// string when there is none.
  virtual void requestUserAgent(std::function<void(const JXString&)> answer) = 0;

  /// Tells the system to call the two operations when the application goes to the background and
  /// before it comes back, on the system's main thread. Called once. A system without such
  /// notifications ignores it; there the host calls JXApplication itself.
  virtual void observeApplication(std::function<void()> didEnterBackground,
                                  std::function<void()> willEnterForeground) = 0;

  /// A new random UUID: 36 characters, upper-case hexadecimal, hyphenated.
  virtual JXString newUUID() = 0;
  /// 32 random bits.
  virtual std::uint32_t randomBits() = 0;
  /// This process's identifier.
  virtual std::int32_t processIdentifier() = 0;
};

/// The platform of the system that the library was built for. `bundle` is what the host states; a
/// system with bundles fills what it leaves absent.
JX_API std::shared_ptr<JXPlatform> makeSystemPlatform(const JXBundleInformation& bundle,
                                                      const JXScreenBounds& screen,
                                                      const JXString& userAgent);

}  // namespace jx
